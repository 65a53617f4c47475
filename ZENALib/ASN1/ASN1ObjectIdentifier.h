// ASN1ObjectIdentifier: the OBJECT IDENTIFIER type (universal tag 6).
//
// Text form: decimal arcs separated by any non-digit characters; stored
// identifiers use single blanks ("1 2 840 113549 1 5 13").
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1ObjectIdentifier : public ASN1Object {
 public:
  ASN1ObjectIdentifier() { m_ucPrimitiveTag = ASN1_TAG_OID; }
  // Decodes one element and checks that it is a OBJECT IDENTIFIER (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

  // setOID reads nLength characters of szText: every run of digits is one
  // arc. More than 19 arcs fail with code 1, fewer than 2 with code 2; an
  // arc that needs more than 4 octets fails with code 1.
  int setOID(const char* szText, int nLength);
  int setOID(const char* szText);
  // getOID returns the arcs joined by cSeparator; an empty value fails with
  // code 2, a malformed one or one of 20 or more sub-identifiers with code 1
  // (empty result).
  ByteString getOID(char cSeparator = ' ');
};
