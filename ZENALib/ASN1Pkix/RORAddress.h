// ORAddress ::= SEQUENCE {                             (RFC 5280 appendix A.1)
//   built-in-standard-attributes       BuiltInStandardAttributes,
//   built-in-domain-defined-attributes BuiltInDomainDefinedAttributes OPTIONAL,
//   extension-attributes               ExtensionAttributes OPTIONAL }
#pragma once

#include "ZENALib/ASN1Pkix/RBuiltInDomainDefinedAttributes.h"
#include "ZENALib/ASN1Pkix/RBuiltInStandardAttributes.h"
#include "ZENALib/ASN1Pkix/RExtensionAttributes.h"

#define RORAddress_COMPONENTS(X)                                                                          \
  X(RBuiltInStandardAttributes, BuiltInStandardAttributes, built_in_standard_attributes,                  \
    UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                                                            \
  X(RBuiltInDomainDefinedAttributes, BuiltInDomainDefinedAttributes, built_in_domain_defined_attributes,  \
    UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)                                                             \
  X(RExtensionAttributes, ExtensionAttributes, extension_attributes, UNIVERSAL(ASN1_TAG_SET), R_OPTIONAL)

class RORAddress : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RORAddress)
};
