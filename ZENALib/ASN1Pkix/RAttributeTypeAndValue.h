// AttributeTypeAndValue ::= SEQUENCE { type AttributeType, value AttributeValue }   (RFC 5280 4.1.2.4)
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RAttributeTypeAndValue_COMPONENTS(X)                                \
  X(ASN1ObjectIdentifier, Type, type, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, Value, value, ANY(), R_MANDATORY)

class RAttributeTypeAndValue : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RAttributeTypeAndValue)

 public:
  // The component accessors above are named after `value`; the codec's own
  // setValue overloads stay reachable.
  using ASN1Object::setValue;
};
