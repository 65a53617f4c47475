// ASN1Boolean: the BOOLEAN type (universal tag 1).
#pragma once

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1Boolean : public ASN1Object {
 public:
  ASN1Boolean() { m_ucPrimitiveTag = ASN1_TAG_BOOLEAN; }
  // Decodes one element and checks that it is a BOOLEAN (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

  explicit ASN1Boolean(bool bValue);
  // Stores 0xFF for true and 0x00 for false.
  void setBoolean(bool bValue);
  // False for an empty value, else whether the first content octet is non-zero.
  bool getBoolean() const;
};
