// CRLDistributionPoints ::= SEQUENCE SIZE (1..MAX) OF DistributionPoint   (RFC 5280 4.2.1.13)
// FreshestCRL (4.2.1.15) has the same syntax.
#pragma once

#include "ZENALib/ASN1Pkix/RDistributionPoint.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RCRLDistPointsSyntax : public RListOf<RDistributionPoint> {
 public:
  RCRLDistPointsSyntax() : RListOf("RCRLDistPointsSyntax") {}
};
