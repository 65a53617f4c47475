// RSAPrivateKey ::= SEQUENCE {                                (RFC 8017 A.1.2)
//   version         Version,           -- 0 two-prime, 1 multi
//   modulus         INTEGER,  -- n
//   publicExponent  INTEGER,  -- e
//   privateExponent INTEGER,  -- d
//   prime1          INTEGER,  -- p
//   prime2          INTEGER,  -- q
//   exponent1       INTEGER,  -- d mod (p-1)
//   exponent2       INTEGER,  -- d mod (q-1)
//   coefficient     INTEGER,  -- (inverse of q) mod p
//   otherPrimeInfos OtherPrimeInfos OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/ROtherPrimeInfos.h"

#define RRSAPrivateKey_COMPONENTS(X)                                                              \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                      \
  X(ASN1Integer, Modulus, modulus, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                      \
  X(ASN1Integer, PublicExponent, publicExponent, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)        \
  X(ASN1Integer, PrivateExponent, privateExponent, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)      \
  X(ASN1Integer, Prime1, prime1, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                        \
  X(ASN1Integer, Prime2, prime2, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                        \
  X(ASN1Integer, Exponent1, exponent1, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                  \
  X(ASN1Integer, Exponent2, exponent2, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                  \
  X(ASN1Integer, Coefficient, coefficient, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)              \
  X(ROtherPrimeInfos, OtherPrimeInfos, otherPrimeInfos, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RRSAPrivateKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RRSAPrivateKey)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RRSAPrivateKey();
};
