// NameConstraints ::= SEQUENCE {                       (RFC 5280 4.2.1.10)
//   permittedSubtrees [0] GeneralSubtrees OPTIONAL,
//   excludedSubtrees  [1] GeneralSubtrees OPTIONAL }
#pragma once

#include "ZENALib/ASN1Pkix/RGeneralSubtrees.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RNameConstraints : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RGeneralSubtrees, PermittedSubtrees, permittedSubtrees)
  R_COMPONENT(RGeneralSubtrees, ExcludedSubtrees, excludedSubtrees)
};
