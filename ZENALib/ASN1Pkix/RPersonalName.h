// PersonalName ::= SET {                               (RFC 5280 appendix A.1)
//   surname              [0] IMPLICIT PrintableString,
//   given-name           [1] IMPLICIT PrintableString OPTIONAL,
//   initials             [2] IMPLICIT PrintableString OPTIONAL,
//   generation-qualifier [3] IMPLICIT PrintableString OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RPersonalName_COMPONENTS(X)                                                          \
  X(ASN1PrintableString, Surname, surname, IMPLICIT(0), R_MANDATORY)                         \
  X(ASN1PrintableString, GivenName, given_name, IMPLICIT(1), R_OPTIONAL)                     \
  X(ASN1PrintableString, Initials, initials, IMPLICIT(2), R_OPTIONAL)                        \
  X(ASN1PrintableString, GenerationQualifier, generation_qualifier, IMPLICIT(3), R_OPTIONAL)

class RPersonalName : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPersonalName)

 public:
  RPersonalName() : RStructure(ASN1_TAG_SET) {}
};
