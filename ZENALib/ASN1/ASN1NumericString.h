// ASN1NumericString: the NumericString type (universal tag 18): digits and space.
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1NumericString : public ASN1Object {
 public:
  ASN1NumericString() { m_ucPrimitiveTag = ASN1_TAG_NUMERICSTRING; }
  // Decodes one element and checks that it is a NumericString (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

 protected:
  int checkValue(const unsigned char* p, int n) override;
};
