// OtherPrimeInfos ::= SEQUENCE SIZE(1..MAX) OF OtherPrimeInfo   (RFC 8017 A.1.2)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/ROtherPrimeInfo.h"

class ROtherPrimeInfos : public RListOf<ROtherPrimeInfo> {
 public:
  ROtherPrimeInfos() : RListOf("ROtherPrimeInfos") {}
};
