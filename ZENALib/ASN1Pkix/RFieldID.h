// FieldID ::= SEQUENCE {                                      (RFC 3279 2.3.5)
//   fieldType  OBJECT IDENTIFIER,  -- prime-field or characteristic-two-field
//   parameters ANY DEFINED BY fieldType }
//                                   -- Prime-p ::= INTEGER; Characteristic-two ::=
//                                   -- SEQUENCE { m INTEGER, basis OID, parameters ANY }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RFieldID_COMPONENTS(X)                                                        \
  X(ASN1ObjectIdentifier, FieldType, fieldType, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, Parameters, parameters, ANY(), R_MANDATORY)

class RFieldID : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RFieldID)
};
