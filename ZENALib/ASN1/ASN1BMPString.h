// ASN1BMPString: the BMPString type (universal tag 30): big-endian 16-bit units, kept as they are.
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1BMPString : public ASN1Object {
 public:
  ASN1BMPString() { m_ucPrimitiveTag = ASN1_TAG_BMPSTRING; }
  // Decodes one element and checks that it is a BMPString (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;
};
