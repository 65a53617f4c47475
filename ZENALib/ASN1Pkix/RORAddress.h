// ORAddress ::= SEQUENCE {                             (RFC 5280 appendix A.1)
//   built-in-standard-attributes       BuiltInStandardAttributes,
//   built-in-domain-defined-attributes BuiltInDomainDefinedAttributes OPTIONAL,
//   extension-attributes               ExtensionAttributes OPTIONAL }
#pragma once

#include "ZENALib/ASN1Pkix/RBuiltInDomainDefinedAttributes.h"
#include "ZENALib/ASN1Pkix/RBuiltInStandardAttributes.h"
#include "ZENALib/ASN1Pkix/RExtensionAttributes.h"

class RORAddress : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RBuiltInStandardAttributes, BuiltInStandardAttributes, built_in_standard_attributes)
  R_COMPONENT(RBuiltInDomainDefinedAttributes, BuiltInDomainDefinedAttributes, built_in_domain_defined_attributes)
  R_COMPONENT(RExtensionAttributes, ExtensionAttributes, extension_attributes)
};
