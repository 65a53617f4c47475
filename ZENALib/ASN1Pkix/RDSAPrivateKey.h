// The traditional DSA private key: the Dss-Parms of RFC 3279 2.3.2 with the
// public value y and the private value x appended.
//   DSAPrivateKey ::= SEQUENCE {
//     version INTEGER,                 -- 0
//     p INTEGER, q INTEGER, g INTEGER,
//     y INTEGER,                       -- public value
//     x INTEGER }                      -- private value
// (Inside PKCS #8 a DSA private key is the INTEGER x alone.)
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RDSAPrivateKey_COMPONENTS(X)                                         \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY) \
  X(ASN1Integer, P, p, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)             \
  X(ASN1Integer, Q, q, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)             \
  X(ASN1Integer, G, g, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)             \
  X(ASN1Integer, Y, y, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)             \
  X(ASN1Integer, X, x, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)

class RDSAPrivateKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RDSAPrivateKey)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RDSAPrivateKey();
};
