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

class RECPrivateKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(ASN1OctetString, PrivateKey, privateKey)
  R_COMPONENT(RecpkParameters, Parameters, parameters)
  R_COMPONENT(ASN1BitString, PublicKey, publicKey)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RECPrivateKey();
};
