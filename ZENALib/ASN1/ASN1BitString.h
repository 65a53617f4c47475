// ASN1BitString: the BIT STRING type (universal tag 3).
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1BitString : public ASN1Object {
 public:
  ASN1BitString() { m_ucPrimitiveTag = ASN1_TAG_BITSTRING; }
  // Decodes one element and checks that it is a BIT STRING (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

  // With bNamedBitList 1 (key usage and the like) trailing zero octets are
  // dropped and the unused-bits octet counts the zero bits below the lowest
  // set bit; all-zero data fails with code 1. Otherwise the unused-bits
  // octet is 0 followed by the data. Returns 0 or 1.
  int setBitString(const ByteString& bsData, int bNamedBitList);
  // The bits without the unused-bits octet, whose value goes to
  // *pnUnusedBits (may be null). An empty value fails with code 1.
  ByteString getBitString(int* pnUnusedBits);
};
