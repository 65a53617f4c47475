// OriginatorPublicKey ::= SEQUENCE {                           (RFC 5652 6.2.2)
//   algorithm AlgorithmIdentifier,
//   publicKey BIT STRING }
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

class ROriginatorPublicKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAlgorithmIdentifier, Algorithm, algorithm)
  R_COMPONENT(ASN1BitString, PublicKey, publicKey)
};
