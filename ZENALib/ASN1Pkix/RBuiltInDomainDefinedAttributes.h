// BuiltInDomainDefinedAttributes ::= SEQUENCE SIZE (1..ub-domain-defined-attributes)
//                                    OF BuiltInDomainDefinedAttribute   (RFC 5280 appendix A.1)
#pragma once

#include "ZENALib/ASN1Pkix/RBuiltInDomainDefinedAttribute.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RBuiltInDomainDefinedAttributes : public RListOf<RBuiltInDomainDefinedAttribute> {
 public:
  RBuiltInDomainDefinedAttributes() : RListOf("RBuiltInDomainDefinedAttributes") {}
};
