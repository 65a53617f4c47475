// ASN1Object: the base of every ASN.1 value of the toolkit.
//
// An object holds its content octets (m_bsValue, which a structure's decode
// may leave in its input until they are asked for as a ByteString) and a
// description of its identifier: the universal tag of its type, and
// optionally an implicit or an explicit tag. toASN1Object() writes DER (definite, minimal lengths);
// fromASN1Object() reads one element, accepting BER indefinite lengths.
//
// Errors: every operation returns 0 or a positive code, sets the error code
// and puts one trace line in front of the object's error message:
//   "[<file>:<line>]<Class>::<method>-<field>(<code>), <older trace>"
// so the newest frame stands first.
#pragma once

#include <cstdint>

#include "base/ByteString.h"
#include "ZENALib/ASN1/ASN1ViewBytes.h"

class ByteWriter;

// Universal tag numbers.
constexpr unsigned char ASN1_TAG_BOOLEAN = 1;
constexpr unsigned char ASN1_TAG_INTEGER = 2;
constexpr unsigned char ASN1_TAG_BITSTRING = 3;
constexpr unsigned char ASN1_TAG_OCTETSTRING = 4;
constexpr unsigned char ASN1_TAG_NULLTAG = 5;
constexpr unsigned char ASN1_TAG_OID = 6;
constexpr unsigned char ASN1_TAG_ENUMERATED = 10;
constexpr unsigned char ASN1_TAG_UTF8STRING = 12;
constexpr unsigned char ASN1_TAG_SEQUENCE = 16;
constexpr unsigned char ASN1_TAG_SET = 17;
constexpr unsigned char ASN1_TAG_NUMERICSTRING = 18;
constexpr unsigned char ASN1_TAG_PRINTABLESTRING = 19;
constexpr unsigned char ASN1_TAG_T61STRING = 20;
constexpr unsigned char ASN1_TAG_IA5STRING = 22;
constexpr unsigned char ASN1_TAG_UTCTIME = 23;
constexpr unsigned char ASN1_TAG_GENERALIZEDTIME = 24;
constexpr unsigned char ASN1_TAG_VISIBLESTRING = 26;
constexpr unsigned char ASN1_TAG_BMPSTRING = 30;
// No universal type: an untyped holder wrapped only by an explicit tag.
constexpr unsigned char ASN1_TAG_NONE = 255;

// Tagged types (m_ucTaggedType).
constexpr unsigned char ASN1_UNTAGGED = 0;
constexpr unsigned char ASN1_IMPLICIT = 1;
constexpr unsigned char ASN1_EXPLICIT = 2;
constexpr unsigned char ASN1_HIGHTAG = 3;  // only while decoding a high tag number

// Tag classes as they go into the first identifier octet.
constexpr unsigned char ASN1_CLASS_UNIVERSAL = 0x00;
constexpr unsigned char ASN1_CLASS_APPLICATION = 0x40;
constexpr unsigned char ASN1_CLASS_CONTEXT = 0x80;
constexpr unsigned char ASN1_CLASS_PRIVATE = 0xC0;
constexpr unsigned char ASN1_CONSTRUCTED = 0x20;

class ASN1Object {
 public:
  // Inline: a decode constructs one per component.
  ASN1Object()
      : m_ucPrimitiveTag(ASN1_TAG_NONE),
        m_ucTaggedType(ASN1_UNTAGGED),
        m_nOptionTagNo(-1),
        m_ucTagClass(ASN1_CLASS_UNIVERSAL),
        m_nErrorCode(0),
        m_ucConstructed(0) {}
  virtual ~ASN1Object() {
    if (m_bSecret) wipeSecret();
  }
  ASN1Object(const ASN1Object&) = default;
  ASN1Object& operator=(const ASN1Object& other);
  ASN1Object(ASN1Object&&) = default;
  ASN1Object& operator=(ASN1Object&& other) noexcept;

  // A secret value (key material, PBE parameters) is wiped before its memory
  // goes back to the heap: on destruction, and before a decode, setValue,
  // assignment or encoding replaces it. Copies keep the mark.
  void setSecret(bool bSecret) { m_bSecret = bSecret; }
  bool isSecret() const { return m_bSecret; }

  // toASN1Object builds the DER encoding from the identifier fields and
  // m_bsValue and returns a reference to it (held by this object). On failure
  // the result is empty and getErrorCode() says why (1 untyped holder that is
  // not explicitly tagged, 2 negative tag number, 3 no memory).
  virtual ByteString& toASN1Object();
  // One-pass encoding: the length of what toASN1Object would write (-1 when
  // it would fail; toASN1Object then says why), and the writing of it into
  // w, which has room for it (0, or -1). Structures encode every member into
  // one writer this way. A class that overrides toASN1Object overrides
  // these two as well, or returns -1 so its parent asks toASN1Object.
  virtual std::int64_t encodedLength();
  virtual int encodeTo(ByteWriter& w);
  // fromASN1Object parses one encoding (octets after it are ignored) and
  // keeps its contents in m_bsValue; returns 0 or codes 1-12 (see README.md).
  virtual int fromASN1Object(const ByteString& bsData);
  // The same decode from a view of the caller's bytes (null pData: no data,
  // as an empty ByteString); nothing is copied but the value a leaf keeps.
  // Every class of the toolkit decodes here; a class that overrides only
  // fromASN1Object is reached through a copy of the view.
  virtual int fromASN1View(const unsigned char* pData, int nData);
  // setValue replaces the content octets; returns 0, or the code of a type's
  // value check (restricted strings, times), in which case nothing changes.
  virtual int setValue(const ByteString& bsValue);
  int setValue(const char* szText);
  int setValue(const void* pData, int nLength);

  // setImplicitTag: tagged type 1 with the given number and class (0x80 for
  // a context tag); the class goes into the identifier as given.
  void setImplicitTag(int nTagNo, unsigned char ucClass);
  // setExplicitTag: tagged type 2, class | 0x20; returns the tag number.
  int setExplicitTag(int nTagNo, unsigned char ucClass);

  // The content octets. A value decoded by a structure may still lie in the
  // structure's input; asking for it as a ByteString copies it out then.
  ByteString& getValue() { return m_bsValue.owned(); }
  const ByteString& getValue() const { return m_bsValue.bytes(); }
  int getValueLength() const { return m_bsValue.length(); }
  unsigned char getTaggedType() const { return m_ucTaggedType; }
  int getOptionTagNo() const { return m_nOptionTagNo; }
  unsigned char getPrimitiveTag() const { return m_ucPrimitiveTag; }
  // The class bits alone (0x00, 0x40, 0x80, 0xC0), without the constructed bit.
  unsigned char getTagClass() const { return static_cast<unsigned char>(m_ucTagClass & 0xC0); }
  unsigned char isConstructed() const { return m_ucConstructed; }
  int getErrorCode() const { return m_nErrorCode; }
  const ByteString& getErrorMessage() const { return m_bsErrorMsg; }

  // checkASN1Member classifies the first identifier octet b: the class
  // (b & 0xE0), the tagged type (0 universal, 1 primitive non-universal,
  // 2 constructed non-universal, 3 high tag number follows), the tag number
  // of a tagged identifier, and the tag of a universal one. Universal tags
  // 13, 14, 15, 29 and 31 fail with code 1. Outputs may be null.
  int checkASN1Member(unsigned char b, unsigned char* pucTag, unsigned char* pucTaggedType, int* pnTagNo,
                      unsigned char* pucTagClass);
  // GetHighTag reads a base-128 tag number from at most nAvail octets at p
  // (after the first octet when bSkipFirst). At most 4 octets in all are
  // allowed. Returns the octets consumed including a skipped first one, or 0.
  int GetHighTag(const unsigned char* p, int nAvail, int* pnTagNo, bool bSkipFirst);
  // findIndefiniteLengEnd walks the elements of indefinite-length contents
  // (nAvail octets at p) up to the end-of-contents octets and stores the
  // contents length in *pnLength; 0 or codes 1-5. Nesting is limited to
  // qva_limits::kMaxIndefiniteDepth levels.
  int findIndefiniteLengEnd(const unsigned char* p, int nAvail, int* pnLength);

  // Replaces the error message with "[<base name of file>:<line>]<cls>::
  // <method>-<field>(<code>)" followed, when szMessage is non-empty, by ", "
  // and szMessage. szMessage may be the object's own trace, which is how
  // traces chain. Does not change the error code.
  void setErrorMessage(const char* szFile, int nLine, const char* szClass, const char* szMethod,
                       const char* szField, int nCode, const char* szMessage);

 protected:
  // Records a failure: sets the error code, writes the trace line, returns nCode.
  int fail(const char* szFile, int nLine, const char* szClass, const char* szMethod, const char* szField,
           int nCode, const char* szMessage);
  // The same with szFormat as the message, its "%.*s" filled with the text
  // (at most 1024 characters of it, so the message always fits).
  int failText(const char* szFile, int nLine, const char* szClass, const char* szMethod, const char* szField,
               int nCode, const char* szFormat, const char* szText, int nLength);
  // The same with the object's current trace as the message (chaining).
  int failChained(const char* szFile, int nLine, const char* szClass, const char* szMethod,
                  const char* szField, int nCode);
  // Shared decoding of the typed classes: the base decode (failure code 1,
  // field "ASN1Object::fromASN1Object"), then an implicit tag takes ucTag,
  // otherwise a different tag fails with code 2 and szTagFormat filled with it.
  // szFile and nLine name the caller's position in the trace.
  // With ppContent given, the contents are not stored but handed back as a
  // span of the input.
  int decodeTyped(const char* szFile, int nLine, const unsigned char* pData, int nData, const char* szClass,
                  unsigned char ucTag, const char* szTagFormat, const unsigned char** ppContent = nullptr,
                  int* pnContent = nullptr) {
    if (!ppContent && m_bKeepViews && !m_bSecret && pData && nData >= 2 && pData[0] == ucTag && pData[1] < 0x80 &&
        pData[1] <= nData - 2) {
      // A primitive element of the class's own universal tag with a short
      // length, left in an input that outlives this object: nothing to check
      // but its place.
      m_nErrorCode = 0;
      m_ucTagClass = ASN1_CLASS_UNIVERSAL;
      m_ucTaggedType = ASN1_UNTAGGED;
      m_ucPrimitiveTag = ucTag;
      m_ucConstructed = 0;
      m_bsValue.setView(pData + 2, pData[1]);
      return 0;
    }
    return decodeTypedElement(szFile, nLine, pData, nData, szClass, ucTag, szTagFormat, ppContent, pnContent);
  }
  int decodeTypedElement(const char* szFile, int nLine, const unsigned char* pData, int nData, const char* szClass,
                         unsigned char ucTag, const char* szTagFormat, const unsigned char** ppContent,
                         int* pnContent);
  // The base decode of one element from a view: identifier fields set, the
  // contents stored in m_bsValue (or, with ppContent, handed back as a span).
  int decodeElement(const unsigned char* pData, int nData, const unsigned char** ppContent = nullptr,
                    int* pnContent = nullptr);
  // The view of a ByteString as fromASN1View takes it (null when it holds no buffer).
  static const unsigned char* viewOf(const ByteString& bs) { return bs.isEmpty() ? nullptr : bs.data(); }
  // Character check of the restricted string types: the first octet that
  // pAccept refuses fails with code 1, field "data", szFormat filled with it.
  // szFile and nLine name the caller's position in the trace.
  int checkCharacters(const char* szFile, int nLine, const unsigned char* p, int n, bool (*pAccept)(unsigned char),
                      const char* szClass, const char* szFormat);
  // Value check run by every setValue before the value is stored; 0 accepts.
  virtual int checkValue(const unsigned char* p, int n);
  // Runs after a value was stored by setValue (sequences rebuild their table).
  virtual int afterSetValue();
  // The content octets where they lie, without copying them out.
  const unsigned char* valueData() const { return m_bsValue.data(); }
  int valueLength() const { return m_bsValue.length(); }
  // Decodes a member of this object from (p, n), part of this object's own
  // input: when that input outlives the member (m_bKeepViews), the member's
  // values may point into it instead of being copied.
  int decodeChild(ASN1Object& child, const unsigned char* p, int n) {
    child.m_bKeepViews = m_bKeepViews;
    const int rc = child.fromASN1View(p, n);
    child.m_bKeepViews = false;
    return rc;
  }
 public:
  // Copies every value that still points into a decoded input into storage
  // of this object's own, here and in every member; a container that moves
  // its items without moving them one by one calls it on each.
  virtual void detachViews() { m_bsValue.detach(); }

 protected:

  // Identifier and length octets around nContent octets of contents.
  struct Header {
    unsigned char outer[16];  // the tag's identifier, and its length when explicit
    int nOuter;
    unsigned char inner[8];  // universal identifier (unless implicit) and the contents' length
    int nInner;
    const char* szField;  // the field a failure names
  };
  // The headers for the given identifier fields; 0, or the code
  // toASN1Object reports (1 untyped holder not explicitly tagged, 2 negative
  // tag number, 3 longer than a ByteString holds).
  static int buildHeader(unsigned char ucPrimitiveTag, unsigned char ucTaggedType, int nOptionTagNo,
                         unsigned char ucTagClass, unsigned char ucConstructed, std::uint64_t nContent, Header* h);

  // Encodes a length (definite, minimal) into out; returns the octets written (1-5).
  static int putLength(unsigned char* out, std::uint32_t nLength);
  // Writes v in base-128 digits, bit 0x80 on all but the last; returns the count (1-5).
  static int putBase128(unsigned char* out, std::uint32_t v);

  unsigned char m_ucPrimitiveTag;
  unsigned char m_ucTaggedType;
  int m_nOptionTagNo;
  unsigned char m_ucTagClass;
  int m_nErrorCode;
  ASN1ViewBytes m_bsValue;
  ByteString m_bsEncoded;
  ByteString m_bsErrorMsg;
  unsigned char m_ucConstructed;
  bool m_bSecret = false;
  // Set only while a decode runs whose input outlives this object.
  bool m_bKeepViews = false;

 private:
  // Wipes the value and the encoding when they are secret.
  void wipeSecret();
  int findIndefiniteLengEnd(const unsigned char* p, int nAvail, int* pnLength, int nDepth);
};

// Records a failure at the caller's source position; evaluates to the code.
#define ASN1_FAIL(cls, method, field, code, message) fail(__FILE__, __LINE__, (cls), (method), (field), (code), (message))
#define ASN1_FAIL_CHAINED(cls, method, field, code) failChained(__FILE__, __LINE__, (cls), (method), (field), (code))
