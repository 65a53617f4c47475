// ExtensionAttributes ::= SET SIZE (1..ub-extension-attributes) OF ExtensionAttribute
//                                                      (RFC 5280 appendix A.1)
#pragma once

#include "ZENALib/ASN1Pkix/RExtensionAttribute.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RExtensionAttributes : public RSetOf<RExtensionAttribute> {
 public:
  RExtensionAttributes() : RSetOf("RExtensionAttributes") {}
};
