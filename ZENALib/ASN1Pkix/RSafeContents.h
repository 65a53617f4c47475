// SafeContents ::= SEQUENCE OF SafeBag                        (RFC 7292 4.2)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RSafeBag.h"

class RSafeContents : public RListOf<RSafeBag> {
 public:
  RSafeContents() : RListOf("RSafeContents") {}
};
