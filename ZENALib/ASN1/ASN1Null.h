// ASN1Null: the NULL type (universal tag 5); its value is empty.
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1Null : public ASN1Object {
 public:
  ASN1Null() { m_ucPrimitiveTag = ASN1_TAG_NULLTAG; }
  // Decodes one element and checks that it is a NULL (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;
};
