// KCDSAParameters ::= SEQUENCE {   (KCDSA domain parameters, TTAS.KO-12.0001)
//   p     INTEGER,                 -- odd prime p = 2jq + 1
//   q     INTEGER,                 -- odd prime q
//   g     INTEGER,                 -- generator of order q
//   j     INTEGER OPTIONAL,        -- (p - 1) / 2q
//   seed  OCTET STRING OPTIONAL,   -- parameter generation seed
//   count INTEGER OPTIONAL }       -- parameter generation counter
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RKCDSAParameters_COMPONENTS(X)                                        \
  X(ASN1Integer, P, p, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)              \
  X(ASN1Integer, Q, q, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)              \
  X(ASN1Integer, G, g, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)              \
  X(ASN1Integer, J, j, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL)               \
  X(ASN1OctetString, Seed, seed, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_OPTIONAL) \
  X(ASN1Integer, Count, count, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL)

class RKCDSAParameters : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RKCDSAParameters)
};
