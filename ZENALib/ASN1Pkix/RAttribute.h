// Attribute ::= SEQUENCE { type   AttributeType,
//                          values SET OF AttributeValue }   (RFC 5280 4.1.2.4, RFC 5652 5.3)
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAttributeValues.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RAttribute_COMPONENTS(X)                                            \
  X(ASN1ObjectIdentifier, Type, type, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAttributeValues, Values, values, UNIVERSAL(ASN1_TAG_SET), R_MANDATORY)

class RAttribute : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RAttribute)
};
