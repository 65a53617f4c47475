// NameConstraints ::= SEQUENCE {                       (RFC 5280 4.2.1.10)
//   permittedSubtrees [0] GeneralSubtrees OPTIONAL,
//   excludedSubtrees  [1] GeneralSubtrees OPTIONAL }
#pragma once

#include "ZENALib/ASN1Pkix/RGeneralSubtrees.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RNameConstraints_COMPONENTS(X)                                               \
  X(RGeneralSubtrees, PermittedSubtrees, permittedSubtrees, IMPLICIT(0), R_OPTIONAL) \
  X(RGeneralSubtrees, ExcludedSubtrees, excludedSubtrees, IMPLICIT(1), R_OPTIONAL)

class RNameConstraints : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RNameConstraints)
};
