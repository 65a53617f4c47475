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

class RDSAPrivateKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(ASN1Integer, P, p)
  R_COMPONENT(ASN1Integer, Q, q)
  R_COMPONENT(ASN1Integer, G, g)
  R_COMPONENT(ASN1Integer, Y, y)
  R_COMPONENT(ASN1Integer, X, x)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RDSAPrivateKey();
};
