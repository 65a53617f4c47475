// RAny: a component kept verbatim (ANY DEFINED BY parameters, attribute
// values, contents whose type another member names).
//
// Decoding keeps the element's exact bytes, so encoding it again gives them
// back unchanged: the content octets once, in getValue(), and the identifier
// and length octets (at most 9) beside them; getElement() joins them the first
// time it is asked. Under an explicit tag set by the parent, the tag is
// unwrapped and wrapped here.
#pragma once

#include "ZENALib/ASN1Pkix/RObject.h"

class RAny : public RObject {
 public:
  RAny() : RObject(ASN1_TAG_NONE) {}
  RAny(const RAny&) = default;
  RAny& operator=(const RAny&) = default;
  ~RAny() override {
    if (isSecret()) m_bsElement.zeroize();
  }
  const char* className() const override { return "RAny"; }
  ByteString& toASN1Object() override;
  std::int64_t encodedLength() override;
  int encodeTo(ByteWriter& w) override;
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  int fromASN1View(const unsigned char* pData, int nData) override;

  // The element itself (identifier, length, contents); empty when unset.
  const ByteString& getElement() const;
  // Sets the element from a complete encoding; 0, or R_ERR_FORMAT when it is
  // not one whole element.
  int setElement(const ByteString& bsElement);
  // The first identifier octet of the element, 0 when unset.
  unsigned char getIdentifier() const { return m_nHeader ? m_aHeader[0] : 0; }

 protected:
  // A value set on a decoded element keeps its identifier, under a new length.
  int afterSetValue() override;

 private:
  int store(const unsigned char* p, int n);
  // The element's length: header, contents and end-of-contents octets; 0 when unset.
  int elementLength() const { return m_nHeader ? m_nHeader + valueLength() + (m_bEndOctets ? 2 : 0) : 0; }
  void writeElement(ByteWriter& w) const;

  unsigned char m_aHeader[12];
  unsigned char m_nHeader = 0;
  bool m_bEndOctets = false;  // an indefinite length: two zero octets follow the contents
  // The joined element, built by getElement.
  mutable ByteString m_bsElement;
};
