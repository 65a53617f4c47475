// GeneralNames ::= SEQUENCE SIZE (1..MAX) OF GeneralName   (RFC 5280 4.2.1.6)
#pragma once

#include "ZENALib/ASN1Pkix/RGeneralName.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RGeneralNames : public RListOf<RGeneralName> {
 public:
  RGeneralNames() : RListOf("RGeneralNames") {}
};
