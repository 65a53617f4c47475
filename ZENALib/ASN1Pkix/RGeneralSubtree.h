// GeneralSubtree ::= SEQUENCE {                        (RFC 5280 4.2.1.10)
//   base        GeneralName,
//   minimum [0] BaseDistance DEFAULT 0,
//   maximum [1] BaseDistance OPTIONAL }
// BaseDistance ::= INTEGER (0..MAX); the module is implicitly tagged. base is
// an untagged CHOICE of context-tagged names, so it takes any identifier.
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RGeneralName.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RGeneralSubtree_COMPONENTS(X)                       \
  X(RGeneralName, Base, base, ANY(), R_MANDATORY)           \
  X(ASN1Integer, Minimum, minimum, IMPLICIT(0), R_OPTIONAL) \
  X(ASN1Integer, Maximum, maximum, IMPLICIT(1), R_OPTIONAL)

class RGeneralSubtree : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RGeneralSubtree)
};
