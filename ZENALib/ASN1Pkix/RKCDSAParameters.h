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

class RKCDSAParameters : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, P, p)
  R_COMPONENT(ASN1Integer, Q, q)
  R_COMPONENT(ASN1Integer, G, g)
  R_COMPONENT(ASN1Integer, J, j)
  R_COMPONENT(ASN1OctetString, Seed, seed)
  R_COMPONENT(ASN1Integer, Count, count)
};
