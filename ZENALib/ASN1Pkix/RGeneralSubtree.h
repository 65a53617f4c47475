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

class RGeneralSubtree : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RGeneralName, Base, base)
  R_COMPONENT(ASN1Integer, Minimum, minimum)
  R_COMPONENT(ASN1Integer, Maximum, maximum)
};
