// Curve ::= SEQUENCE {                                        (RFC 3279 2.3.5)
//   a    FieldElement,         -- OCTET STRING
//   b    FieldElement,
//   seed BIT STRING OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RCurve : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1OctetString, A, a)
  R_COMPONENT(ASN1OctetString, B, b)
  R_COMPONENT(ASN1BitString, Seed, seed)
};
