// DistributionPoint ::= SEQUENCE {                     (RFC 5280 4.2.1.13)
//   distributionPoint [0] DistributionPointName OPTIONAL,
//   reasons           [1] ReasonFlags OPTIONAL,
//   cRLIssuer         [2] GeneralNames OPTIONAL }
// The module is implicitly tagged; [0] tags a CHOICE, so it is explicit.
// ReasonFlags ::= BIT STRING.
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1Pkix/RDistributionPointName.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RDistributionPoint_COMPONENTS(X)                                                   \
  X(RDistributionPointName, DistributionPoint, distributionPoint, EXPLICIT(0), R_OPTIONAL) \
  X(ASN1BitString, Reasons, reasons, IMPLICIT(1), R_OPTIONAL)                              \
  X(RGeneralNames, CRLIssuer, cRLIssuer, IMPLICIT(2), R_OPTIONAL)

class RDistributionPoint : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RDistributionPoint)
};
