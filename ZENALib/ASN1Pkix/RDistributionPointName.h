// DistributionPointName ::= CHOICE {                   (RFC 5280 4.2.1.13)
//   fullName                [0] GeneralNames,
//   nameRelativeToCRLIssuer [1] RelativeDistinguishedName }
// The module is implicitly tagged.
#pragma once

#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RRelativeDistinguishedName.h"

class RDistributionPointName : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(RGeneralNames, FullName, fullName)
  R_ALTERNATIVE(RRelativeDistinguishedName, NameRelativeToCRLIssuer, nameRelativeToCRLIssuer)
};
