// OriginatorPublicKey ::= SEQUENCE {                           (RFC 5652 6.2.2)
//   algorithm AlgorithmIdentifier,
//   publicKey BIT STRING }
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define ROriginatorPublicKey_COMPONENTS(X)                                                 \
  X(RAlgorithmIdentifier, Algorithm, algorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1BitString, PublicKey, publicKey, UNIVERSAL(ASN1_TAG_BITSTRING), R_MANDATORY)

class ROriginatorPublicKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(ROriginatorPublicKey)
};
