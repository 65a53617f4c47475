// RSAPublicKey ::= SEQUENCE {                                 (RFC 8017 A.1.1)
//   modulus        INTEGER,  -- n
//   publicExponent INTEGER } -- e
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RRSAPublicKey_COMPONENTS(X)                                                        \
  X(ASN1Integer, Modulus, modulus, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)               \
  X(ASN1Integer, PublicExponent, publicExponent, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)

class RRSAPublicKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RRSAPublicKey)
};
