// ASN1Sequence: splitter and builder of constructed values.
//
// The content of a sequence is always the concatenation of complete member
// encodings; a table records, per component, its offset in m_bsValue, its
// whole length (identifier, length octets, contents) and its tag key: the
// tag number (0 or more) of a context, application or private tag, or minus
// the universal tag number (-1 to -30) of a universal component.
//
// Decoding: fromASN1Object(), then getComponentCount(), getComponentTag(i)
// or getComponentOptionTagNo(i), and getComponent(i) for a member's bytes.
// Encoding: addComponent(member.toASN1Object()) per present member, then
// toASN1Object().
#pragma once

#include <memory>

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1Sequence : public ASN1Object {
 public:
  struct ComponentInfo {
    int nOffset;  // first identifier octet within m_bsValue
    int nLength;  // identifier, length octets and contents
    int nTagKey;  // tag number of a tagged component, minus the universal tag otherwise
  };

  ASN1Sequence() : ASN1Sequence(ASN1_TAG_SEQUENCE) {}
  ~ASN1Sequence() override = default;
  ASN1Sequence(const ASN1Sequence& other);
  ASN1Sequence& operator=(const ASN1Sequence& other);
  ASN1Sequence(ASN1Sequence&& other) noexcept;
  ASN1Sequence& operator=(ASN1Sequence&& other) noexcept;

  // Decodes the outer element (code 1), checks the tag (code 2; an implicit
  // tag is taken as SEQUENCE) and builds the component table (code 3).
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

  // Appends one complete encoding and its table entry; 0, or 1 when the
  // table or the value cannot grow.
  int addComponent(const ByteString& bsComponent, int nTagKey);
  // The same with the tag key read from the encoding's identifier (1 also
  // for an identifier that cannot be read).
  int addComponent(const ByteString& bsComponent);

  int getComponentCount() const { return m_nComponentCount; }
  // A copy of component i's encoding, held in the encoding field (so it is
  // replaced by the next getComponent or toASN1Object). Out of range: error
  // code 1 and an empty result.
  ByteString& getComponent(int nIndex);
  // Borrows component i's encoding without copying; 0, or 1 out of range.
  int getComponentBytes(int nIndex, const unsigned char** ppData, int* pnLength) const;
  // The raw tag key of component i (0 for a [0] member); -1 out of range.
  int getComponentOptionTagNo(int nIndex) const;
  // The universal tag number of a universal component, -2 for a tagged
  // component, -1 out of range.
  int getComponentTag(int nIndex) const;
  // The whole table entry of component i, or null out of range.
  const ComponentInfo* getComponentInfo(int nIndex) const;

  // Decodes as fromASN1View does (same checks, codes and traces) without
  // copying the contents: the table and getComponentBytes refer to the
  // caller's bytes, which must outlive their use; getValue() stays empty.
  // The structure engines walk their components this way.
  int borrowComponents(const unsigned char* pData, int nData);
  // The same decode up to the contents only: no component table is built
  // (getComponentCount() stays 0); the contents span is handed back. A
  // caller that finds a component it cannot vouch for calls
  // ExtractComponentInfo() for the walk's own result and trace.
  int borrowContents(const unsigned char* pData, int nData, const unsigned char** ppContent, int* pnContent);

  // Builds the component table from m_bsValue; 0 or codes 1-5.
  int ExtractComponentInfo();
  // Grows the table by 20 entries (by a multiple of 20 near half its size
  // once it holds 40 or more); 0, or 1 when memory runs out.
  int ReallocCompontntInfo();
  // Empties the value and the table.
  void removeAllComponents();

 protected:
  ASN1Sequence(unsigned char ucTag) : m_nComponentCount(0), m_nComponentCapacity(0) { m_ucPrimitiveTag = ucTag; }
  int afterSetValue() override;
  // Decoding shared with ASN1Set: the outer element, the tag check with
  // szTagFormat, then the component table.
  int decodeConstructed(const char* szFile, int nLine, const unsigned char* pData, int nData, const char* szClass,
                        unsigned char ucTag, const char* szTagFormat);
  // The contents the table refers to: the caller's bytes after
  // borrowComponents, m_bsValue otherwise.
  const unsigned char* contents() const { return m_pBorrowed ? m_pBorrowed : valueData(); }
  int contentsLength() const { return m_pBorrowed ? m_nBorrowed : valueLength(); }

  int m_nComponentCount;
  int m_nComponentCapacity;
  std::unique_ptr<ComponentInfo[]> pComponentInfo;

 private:
  bool m_bBorrow = false;                     // set only while borrowComponents decodes
  bool m_bNoTable = false;                    // set only while borrowContents decodes
  const unsigned char* m_pBorrowed = nullptr;  // the caller's contents after borrowComponents
  int m_nBorrowed = 0;
};
