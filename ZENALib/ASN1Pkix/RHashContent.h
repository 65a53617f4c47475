// The input of a subscriber's virtual identifier (Korean PKI identity
// verification, KCAC.TS.SIVID): VID = h(h(HashContent)).
//   HashContent ::= SEQUENCE {
//     idn       PrintableString,
//     randomNum BIT STRING }
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RHashContent_COMPONENTS(X)                                                   \
  X(ASN1PrintableString, Idn, idn, UNIVERSAL(ASN1_TAG_PRINTABLESTRING), R_MANDATORY) \
  X(ASN1BitString, RandomNum, randomNum, UNIVERSAL(ASN1_TAG_BITSTRING), R_MANDATORY)

class RHashContent : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RHashContent)
};
