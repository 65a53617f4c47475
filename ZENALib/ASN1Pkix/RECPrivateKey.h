// ECPrivateKey ::= SEQUENCE {                                 (RFC 5915 3, SEC 1 C.4)
//   version    INTEGER { ecPrivkeyVer1(1) },
//   privateKey OCTET STRING,
//   parameters [0] ECParameters {{ NamedCurve }} OPTIONAL,  -- EXPLICIT; an ECPKParameters
//   publicKey  [1] BIT STRING OPTIONAL }                    -- EXPLICIT
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RecpkParameters.h"

#define RECPrivateKey_COMPONENTS(X)                                                        \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)               \
  X(ASN1OctetString, PrivateKey, privateKey, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY) \
  X(RecpkParameters, Parameters, parameters, EXPLICIT(0), R_OPTIONAL)                      \
  X(ASN1BitString, PublicKey, publicKey, EXPLICIT(1), R_OPTIONAL)

class RECPrivateKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RECPrivateKey)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RECPrivateKey();
};
