// PersonalName ::= SET {                               (RFC 5280 appendix A.1)
//   surname              [0] IMPLICIT PrintableString,
//   given-name           [1] IMPLICIT PrintableString OPTIONAL,
//   initials             [2] IMPLICIT PrintableString OPTIONAL,
//   generation-qualifier [3] IMPLICIT PrintableString OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RPersonalName : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1PrintableString, Surname, surname)
  R_COMPONENT(ASN1PrintableString, GivenName, given_name)
  R_COMPONENT(ASN1PrintableString, Initials, initials)
  R_COMPONENT(ASN1PrintableString, GenerationQualifier, generation_qualifier)

 public:
  RPersonalName() : RStructure(ASN1_TAG_SET) {}
};
