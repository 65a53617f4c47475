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

#define RPrivateKeyInfo_COMPONENTS(X)                                                                          \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                                   \
  X(RAlgorithmIdentifier, PrivateKeyAlgorithm, privateKeyAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, PrivateKey, privateKey, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)                     \
  X(RAttributes, Attributes, attributes, IMPLICIT(0), R_OPTIONAL)                                              \
  X(ASN1BitString, PublicKey, publicKey, IMPLICIT(1), R_OPTIONAL)

class RPrivateKeyInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPrivateKeyInfo)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RPrivateKeyInfo();
};
