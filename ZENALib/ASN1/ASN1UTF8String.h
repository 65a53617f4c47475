// ASN1UTF8String: the UTF8String type (universal tag 12).
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1UTF8String : public ASN1Object {
 public:
  ASN1UTF8String() { m_ucPrimitiveTag = ASN1_TAG_UTF8STRING; }
  // Decodes one element and checks that it is a UTF8String (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

  // The value as 16-bit units, low octet first: ASCII octets and Hangul
  // syllables (U+AC00 to U+D7A3) are converted, every other octet becomes
  // one "?". The result is held in the encoding field.
  ByteString& getUCS2Value();
};
