// RSAPublicKey ::= SEQUENCE {                                 (RFC 8017 A.1.1)
//   modulus        INTEGER,  -- n
//   publicExponent INTEGER } -- e
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RRSAPublicKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Modulus, modulus)
  R_COMPONENT(ASN1Integer, PublicExponent, publicExponent)
};
