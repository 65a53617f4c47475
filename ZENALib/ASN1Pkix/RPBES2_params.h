// PBES2-params ::= SEQUENCE {                                 (RFC 2898 A.4)
//   keyDerivationFunc AlgorithmIdentifier {{PBES2-KDFs}},
//   encryptionScheme  AlgorithmIdentifier {{PBES2-Encs}} }
#pragma once

#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define RPBES2_params_COMPONENTS(X)                                                                        \
  X(RAlgorithmIdentifier, KeyDerivationFunc, keyDerivationFunc, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RAlgorithmIdentifier, EncryptionScheme, encryptionScheme, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)

class RPBES2_params : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPBES2_params)
};
