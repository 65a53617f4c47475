// ASN1Set: the SET and SET OF types (universal tag 17).
//
// Works as ASN1Sequence: the same component table and operations. Components
// stay in the order they were added (no DER SET OF sorting).
#pragma once

#include "ZENALib/ASN1/ASN1Sequence.h"

class ASN1Set : public ASN1Sequence {
 public:
  ASN1Set();
  // Decodes the outer element (code 1), checks the tag (code 2; an implicit
  // tag is taken as SET) and builds the component table (code 3).
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;
};
