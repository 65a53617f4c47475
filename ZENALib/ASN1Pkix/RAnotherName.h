// AnotherName ::= SEQUENCE {                           (RFC 5280 4.2.1.6)
//   type-id    OBJECT IDENTIFIER,
//   value  [0] EXPLICIT ANY DEFINED BY type-id }
// The value is kept verbatim; its syntax is named by type-id (the Korean
// identity-verification name, a UPN, ...).
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

// get/setValue would hide ASN1Object::getValue/setValue: the accessors say NameValue.
#define RAnotherName_COMPONENTS(X)                                               \
  X(ASN1ObjectIdentifier, TypeId, type_id, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, NameValue, value, EXPLICIT(0), R_MANDATORY)

class RAnotherName : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RAnotherName)
};
