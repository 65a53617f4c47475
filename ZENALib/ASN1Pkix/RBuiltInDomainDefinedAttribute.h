// BuiltInDomainDefinedAttribute ::= SEQUENCE {         (RFC 5280 appendix A.1)
//   type  PrintableString (SIZE (1..ub-domain-defined-attribute-type-length)),
//   value PrintableString (SIZE (1..ub-domain-defined-attribute-value-length)) }
#pragma once

#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

// get/setValue would hide ASN1Object::getValue/setValue: the accessors say AttributeValue.
#define RBuiltInDomainDefinedAttribute_COMPONENTS(X)                                              \
  X(ASN1PrintableString, Type, type, UNIVERSAL(ASN1_TAG_PRINTABLESTRING), R_MANDATORY)            \
  X(ASN1PrintableString, AttributeValue, value, UNIVERSAL(ASN1_TAG_PRINTABLESTRING), R_MANDATORY)

class RBuiltInDomainDefinedAttribute : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RBuiltInDomainDefinedAttribute)
};
