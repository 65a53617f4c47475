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

class RDistributionPoint : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RDistributionPointName, DistributionPoint, distributionPoint)
  R_COMPONENT(ASN1BitString, Reasons, reasons)
  R_COMPONENT(RGeneralNames, CRLIssuer, cRLIssuer)
};
