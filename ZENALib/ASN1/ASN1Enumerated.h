// ASN1Enumerated: the ENUMERATED type (universal tag 10), encoded as an INTEGER.
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1Enumerated : public ASN1Object {
 public:
  ASN1Enumerated() { m_ucPrimitiveTag = ASN1_TAG_ENUMERATED; }
  // Decodes one element and checks that it is a ENUMERATED (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

  explicit ASN1Enumerated(int nValue);
  void setEnumerated(int nValue);
  int getEnumerated() const;
};
