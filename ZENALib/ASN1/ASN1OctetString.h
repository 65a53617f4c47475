// ASN1OctetString: the OCTET STRING type (universal tag 4).
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1OctetString : public ASN1Object {
 public:
  ASN1OctetString() { m_ucPrimitiveTag = ASN1_TAG_OCTETSTRING; }
  // Decodes one element and checks that it is a OCTET STRING (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;
};
