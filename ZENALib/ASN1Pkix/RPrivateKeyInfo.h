// PrivateKeyInfo ::= OneAsymmetricKey ::= SEQUENCE {          (RFC 5208 5, RFC 5958 2)
//   version             Version,         -- v1(0), v2(1)
//   privateKeyAlgorithm PrivateKeyAlgorithmIdentifier,
//   privateKey          PrivateKey,      -- OCTET STRING
//   attributes          [0] IMPLICIT Attributes OPTIONAL,
//   ...,
//   [[2: publicKey      [1] IMPLICIT PublicKey OPTIONAL ]] } -- BIT STRING
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RAttributes.h"

class RPrivateKeyInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(RAlgorithmIdentifier, PrivateKeyAlgorithm, privateKeyAlgorithm)
  R_COMPONENT(ASN1OctetString, PrivateKey, privateKey)
  R_COMPONENT(RAttributes, Attributes, attributes)
  R_COMPONENT(ASN1BitString, PublicKey, publicKey)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RPrivateKeyInfo();
};
