// GeneralSubtrees ::= SEQUENCE SIZE (1..MAX) OF GeneralSubtree   (RFC 5280 4.2.1.10)
#pragma once

#include "ZENALib/ASN1Pkix/RGeneralSubtree.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RGeneralSubtrees : public RListOf<RGeneralSubtree> {
 public:
  RGeneralSubtrees() : RListOf("RGeneralSubtrees") {}
};
