// ASN1PrintableString: the PrintableString type (universal tag 19).
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1PrintableString : public ASN1Object {
 public:
  ASN1PrintableString() { m_ucPrimitiveTag = ASN1_TAG_PRINTABLESTRING; }
  // Decodes one element and checks that it is a PrintableString (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

 protected:
  // Letters, digits, space and ' ( ) + , - . / : = ?
  int checkValue(const unsigned char* p, int n) override;
};
