// PBES2-params ::= SEQUENCE {                                 (RFC 2898 A.4)
//   keyDerivationFunc AlgorithmIdentifier {{PBES2-KDFs}},
//   encryptionScheme  AlgorithmIdentifier {{PBES2-Encs}} }
#pragma once

#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

class RPBES2_params : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAlgorithmIdentifier, KeyDerivationFunc, keyDerivationFunc)
  R_COMPONENT(RAlgorithmIdentifier, EncryptionScheme, encryptionScheme)
};
