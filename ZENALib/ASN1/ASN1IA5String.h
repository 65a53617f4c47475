// ASN1IA5String: the IA5String type (universal tag 22).
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1IA5String : public ASN1Object {
 public:
  ASN1IA5String() { m_ucPrimitiveTag = ASN1_TAG_IA5STRING; }
  // Decodes one element and checks that it is a IA5String (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

 protected:
  // Printable ASCII only: 0x20 to 0x7E.
  int checkValue(const unsigned char* p, int n) override;
};
