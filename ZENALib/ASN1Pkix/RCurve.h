// Curve ::= SEQUENCE {                                        (RFC 3279 2.3.5)
//   a    FieldElement,         -- OCTET STRING
//   b    FieldElement,
//   seed BIT STRING OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RCurve_COMPONENTS(X)                                              \
  X(ASN1OctetString, A, a, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)  \
  X(ASN1OctetString, B, b, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)  \
  X(ASN1BitString, Seed, seed, UNIVERSAL(ASN1_TAG_BITSTRING), R_OPTIONAL)

class RCurve : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RCurve)
};
