// BuiltInDomainDefinedAttribute ::= SEQUENCE {         (RFC 5280 appendix A.1)
//   type  PrintableString (SIZE (1..ub-domain-defined-attribute-type-length)),
//   value PrintableString (SIZE (1..ub-domain-defined-attribute-value-length)) }
#pragma once

#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RBuiltInDomainDefinedAttribute : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1PrintableString, Type, type)
  // get/setValue would hide ASN1Object::getValue/setValue: the accessors say AttributeValue.
  R_COMPONENT(ASN1PrintableString, AttributeValue, value)
};
