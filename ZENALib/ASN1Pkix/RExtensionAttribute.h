// ExtensionAttribute ::= SEQUENCE {                    (RFC 5280 appendix A.1)
//   extension-attribute-type  [0] IMPLICIT INTEGER (0..ub-extension-attributes),
//   extension-attribute-value [1] ANY DEFINED BY extension-attribute-type }
// The module is explicitly tagged: the value's [1] is explicit; it is kept verbatim.
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RExtensionAttribute_COMPONENTS(X)                                                    \
  X(ASN1Integer, ExtensionAttributeType, extension_attribute_type, IMPLICIT(0), R_MANDATORY) \
  X(RAny, ExtensionAttributeValue, extension_attribute_value, EXPLICIT(1), R_MANDATORY)

class RExtensionAttribute : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RExtensionAttribute)
};
