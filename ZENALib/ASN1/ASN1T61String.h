// ASN1T61String: the T61String (TeletexString) type (universal tag 20); octets are kept as they are.
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1T61String : public ASN1Object {
 public:
  ASN1T61String() { m_ucPrimitiveTag = ASN1_TAG_T61STRING; }
  // Decodes one element and checks that it is a T61String (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;
};
