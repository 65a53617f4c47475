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

class RRSAPrivateKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(ASN1Integer, Modulus, modulus)
  R_COMPONENT(ASN1Integer, PublicExponent, publicExponent)
  R_COMPONENT(ASN1Integer, PrivateExponent, privateExponent)
  R_COMPONENT(ASN1Integer, Prime1, prime1)
  R_COMPONENT(ASN1Integer, Prime2, prime2)
  R_COMPONENT(ASN1Integer, Exponent1, exponent1)
  R_COMPONENT(ASN1Integer, Exponent2, exponent2)
  R_COMPONENT(ASN1Integer, Coefficient, coefficient)
  R_COMPONENT(ROtherPrimeInfos, OtherPrimeInfos, otherPrimeInfos)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RRSAPrivateKey();
};
