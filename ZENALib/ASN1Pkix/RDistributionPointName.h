// DistributionPointName ::= CHOICE {                   (RFC 5280 4.2.1.13)
//   fullName                [0] GeneralNames,
//   nameRelativeToCRLIssuer [1] RelativeDistinguishedName }
// The module is implicitly tagged.
#pragma once

#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RRelativeDistinguishedName.h"

#define RDistributionPointName_COMPONENTS(X)                                                                \
  X(RGeneralNames, FullName, fullName, IMPLICIT(0), R_MANDATORY)                                            \
  X(RRelativeDistinguishedName, NameRelativeToCRLIssuer, nameRelativeToCRLIssuer, IMPLICIT(1), R_MANDATORY)

class RDistributionPointName : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RDistributionPointName)
};
