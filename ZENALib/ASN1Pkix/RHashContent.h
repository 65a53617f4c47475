// The input of a subscriber's virtual identifier (Korean PKI identity
// verification, KCAC.TS.SIVID): VID = h(h(HashContent)).
//   HashContent ::= SEQUENCE {
//     idn       PrintableString,
//     randomNum BIT STRING }
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RHashContent : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1PrintableString, Idn, idn)
  R_COMPONENT(ASN1BitString, RandomNum, randomNum)
};
