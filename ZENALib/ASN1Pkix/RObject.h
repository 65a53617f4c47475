// RObject: the base of every structure class, and the per-field encoding and
// decoding shared by the sequence, choice and collection engines.
//
// Error codes of the structure classes (a member's own failure passes its
// code through unchanged):
//   R_ERR_COUNT    the component count breaks the class's rule (field "nCount")
//   R_ERR_TAG      a mandatory component has the wrong tag, or is missing
//   R_ERR_CHOICE   no alternative of a CHOICE matches the identifier
//   R_ERR_FORMAT   an element header cannot be read, or nothing to encode
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"
#include "ZENALib/ASN1/ASN1Sequence.h"
#include "ZENALib/ASN1/ASN1Set.h"
#include "ZENALib/ASN1Pkix/RSchema.h"
#include "base/ByteReader.h"

#include <utility>

constexpr int R_ERR_COUNT = 21;
constexpr int R_ERR_TAG = 22;
constexpr int R_ERR_CHOICE = 23;
constexpr int R_ERR_FORMAT = 24;

// Identifier and length of one element, read without leaving the buffer.
struct RElementHeader {
  unsigned char first;  // first identifier octet
  int tagNo;            // tag number (high-tag form resolved)
  int idLength;         // identifier octets
  int headerLength;     // identifier and length octets
  int contentLength;    // -1 for an indefinite length
  int totalLength;      // whole element, end-of-contents octets included
  bool constructed() const { return (first & ASN1_CONSTRUCTED) != 0; }
  unsigned char tagClass() const { return static_cast<unsigned char>(first & 0xC0); }
};

// Reads the header of the element at p (n octets available); 0, or
// R_ERR_FORMAT when it is malformed or runs past n.
int RReadHeader(const unsigned char* p, int n, RElementHeader* h);

// The header of the element at p (left octets available) when it is plain:
// a low tag number that no component table refuses and a definite length
// inside the input. False for anything else (not necessarily an error: the
// engines then walk the element the general way, which says what is wrong).
inline bool RPlainHeader(const unsigned char* p, std::size_t left, RElementHeader* h) {
  if (left < 2) return false;
  const unsigned char b0 = p[0];
  const unsigned char low = static_cast<unsigned char>(b0 & 0x1F);
  if (low == 0x1F || (!(b0 & 0xC0) && ((low >= 13 && low <= 15) || low == 29))) return false;
  std::uint32_t len = p[1];
  int hl = 2;
  if (len == 0x81 && left >= 3) {
    len = p[2];
    hl = 3;
  } else if (len == 0x82 && left >= 4) {
    len = static_cast<std::uint32_t>(p[2]) << 8 | p[3];
    hl = 4;
  } else if (len >= 0x80) {
    ByteReader r(p + 1, left - 1);
    bool indefinite = false;
    if (r.readLength(&len, &indefinite) != BS_OK || indefinite) return false;
    hl = static_cast<int>(left - r.remaining());
  }
  if (len > left - static_cast<std::size_t>(hl)) return false;
  *h = RElementHeader{b0, low, 1, hl, static_cast<int>(len), hl + static_cast<int>(len)};
  return true;
}

// The contents of a plain universal SEQUENCE or SET (ucTag) element at p
// (n octets), also when a context tag wraps it as the only element inside:
// true with (*pc, *pn) when every header on the way is plain in the sense
// above.
inline bool RPlainContents(const unsigned char* p, int n, unsigned char ucTag, const unsigned char** pc, int* pn) {
  RElementHeader h;
  if (!p || n < 2 || !RPlainHeader(p, static_cast<std::size_t>(n), &h)) return false;
  if ((p[0] & 0xE0) == (ASN1_CLASS_CONTEXT | ASN1_CONSTRUCTED)) {
    const unsigned char* inner = p + h.headerLength;
    const int total = h.contentLength;
    if (total < 2 || !RPlainHeader(inner, static_cast<std::size_t>(total), &h) || h.totalLength != total) return false;
    p = inner;
  }
  if (p[0] != (ASN1_CONSTRUCTED | ucTag)) return false;
  *pc = p + h.headerLength;
  *pn = h.contentLength;
  return true;
}

// Copies the first component of the constructed element `outer` as it stands
// in the input (the signed part of a certificate or CRL: a signature is
// checked over these bytes, never over a re-encoding). Empty when it cannot
// be read.
void RFirstComponentBytes(const ByteString& outer, ByteString* out);

// The components of a constructed value as the engines walk them: the
// contents are read in place, one element after another. open() decodes the
// outer element exactly as ASN1Sequence (or ASN1Set) would (a plain SEQUENCE
// or SET header with a definite length is read directly, anything else goes
// through the sequence class itself); the components are
// then counted with the bounded header reader, and only when one of them is
// something that reader does not vouch for (an indefinite length, a reserved
// tag) is the sequence's own component table built, so its result and its
// trace are the ones callers see.
class RComponentWalk {
 public:
  explicit RComponentWalk(unsigned char ucTag);
  // 0, or the sequence's code (its trace in sequence().getErrorMessage()).
  int open(const unsigned char* pData, int nData);
  int count() const { return m_nCount; }
  // The next component's element; false when none is left. With ph, its
  // header as RReadHeader reads it (0 there, or R_ERR_FORMAT).
  bool next(const unsigned char** pp, int* pn, RElementHeader* ph = nullptr, int* prc = nullptr);
  const ASN1Sequence& sequence() const { return const_cast<RComponentWalk*>(this)->table(); }

  RComponentWalk(const RComponentWalk&) = delete;
  RComponentWalk& operator=(const RComponentWalk&) = delete;
  ~RComponentWalk();

 private:
  // The sequence is built only when the plain header read cannot vouch for
  // the element, and then only the class the tag asks for.
  ASN1Sequence& table();
  alignas(ASN1Set) unsigned char m_storage[sizeof(ASN1Set) > sizeof(ASN1Sequence) ? sizeof(ASN1Set)
                                                                                     : sizeof(ASN1Sequence)];
  ASN1Sequence* m_pSeq = nullptr;
  unsigned char m_ucTag;
  const unsigned char* m_pContent = nullptr;
  int m_nContent = 0;
  int m_nCount = 0;
  int m_nNext = 0;
  int m_nOffset = 0;
  bool m_bTable = false;
  // The headers of the first components, read while counting.
  static constexpr int kKept = 16;
  RElementHeader m_aHeader[kKept];
};

class RObject : public ASN1Object {
 public:
  // The input a decode kept stays with the object that decoded it: copies and
  // moves get values of their own (ASN1ViewBytes).
  RObject(const RObject& other) : ASN1Object(other) {}
  RObject(RObject&& other) noexcept : ASN1Object(std::move(other)) {}
  RObject& operator=(const RObject& other) {
    ASN1Object::operator=(other);
    return *this;
  }
  RObject& operator=(RObject&& other) noexcept {
    ASN1Object::operator=(std::move(other));
    return *this;
  }
  ~RObject() override {
    if (m_pInput) releaseInput();
  }

  // Class name used in traces.
  virtual const char* className() const = 0;
  // The encoding built by the last toASN1Object, or built now when there is
  // none: an enclosing structure encodes its members straight into its own
  // buffer. Decoding does not keep the bytes received (RAny does, for
  // components that must stay verbatim).
  const ByteString& getEncoded() const {
    if (m_bsEncoded.length() == 0) const_cast<RObject*>(this)->toASN1Object();
    return m_bsEncoded;
  }

 protected:
  explicit RObject(unsigned char ucTag) { m_ucPrimitiveTag = ucTag; }

  // The decode behind fromASN1Object(const ByteString&): the first decode of
  // an object copies the input once and keeps it while the object lives, and
  // the values of its members point into that copy instead of each holding
  // one of their own. A later decode of the same object copies its values
  // (members it leaves alone may still point into the first input).
  int decodeOwned(const ByteString& bsData);

  // Records a failure of this class: the trace line names the class, the
  // method and the field, and chains `message` after it.
  int failAt(const RSchema* schema, const char* method, const char* field, int code, const char* message);

  // Encodes `seq` under this object's own implicit or explicit tag into
  // m_bsEncoded; on failure records field "asnSeq". Returns m_bsEncoded.
  ByteString& finishEncoding(ASN1Sequence& seq, const RSchema* schema);

  // Encodes one member as field f says (tags applied first) and appends it
  // to seq; 0 or the failing code (recorded under the member's name).
  int encodeField(const RSchema* schema, const RField& f, ASN1Sequence& seq);
  // Decodes one member from an element (p, n) as field f says; 0 or the
  // failing code (recorded under the member's name).
  int decodeField(const RSchema* schema, const RField& f, const unsigned char* p, int n);
  // Whether the element with header h is the one field f expects.
  static bool fieldMatches(const RField& f, const RElementHeader& h) {
    switch (f.kind) {
      case RKind::Universal:
        return h.tagClass() == ASN1_CLASS_UNIVERSAL && h.tagNo < 32 && ((f.tags >> h.tagNo) & 1u);
      case RKind::Any:
        return true;
      case RKind::Explicit:
      case RKind::Implicit:
        return h.tagClass() == ASN1_CLASS_CONTEXT && h.tagNo == f.tag;
    }
    return false;
  }
  // Puts field f's tag on its member before encoding or decoding.
  void applyFieldTag(const RField& f);
  // The element `inner` under this object's own explicit tag, into out.
  int wrapExplicit(const ByteString& inner, ByteString* out) const;
  // The identifier and length octets of this object's own explicit tag
  // around nInner octets, into out (room for 16); their count, or -1.
  int explicitHeader(std::uint64_t nInner, unsigned char* out) const;
  // The headers of a SEQUENCE or SET (ucTag) under this object's own tag
  // around nContent octets, as a sequence given that tag would write them.
  int constructedHeader(unsigned char ucTag, std::uint64_t nContent, Header* h) const;
  // Encodes this object in one pass (encodedLength, then encodeTo into one
  // writer of that size) into m_bsEncoded; false when some part cannot, and
  // the caller then encodes member by member to report why.
  bool encodeOnePass();

  // The contents' length found by the last encodedLength, for encodeTo.
  std::int64_t m_nContentLength = 0;
  // The element inside this object's own explicit tag: (p, n) is narrowed
  // to the inner element. 0 or R_ERR_FORMAT.
  static int unwrapExplicit(const unsigned char** p, int* n);

 private:
  void releaseInput();
  // The input kept by decodeOwned (wiped before it is freed: it may hold keys).
  unsigned char* m_pInput = nullptr;
  int m_nInput = 0;
};
