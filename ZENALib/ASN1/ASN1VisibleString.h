// ASN1VisibleString: the VisibleString type (universal tag 26).
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1VisibleString : public ASN1Object {
 public:
  ASN1VisibleString() { m_ucPrimitiveTag = ASN1_TAG_VISIBLESTRING; }
  // Decodes one element and checks that it is a VisibleString (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

 protected:
  // Letters, digits, space and the punctuation listed in the source; not
  // # $ [ ] ` { }.
  int checkValue(const unsigned char* p, int n) override;
};
