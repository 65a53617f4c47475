// RSAES-OAEP-params ::= SEQUENCE {                            (RFC 4055 4.1; EXPLICIT TAGS)
//   hashAlgorithm    [0] HashAlgorithm    DEFAULT sha1Identifier,
//   maskGenAlgorithm [1] MaskGenAlgorithm DEFAULT mgf1SHA1Identifier,
//   pSourceAlgorithm [2] PSourceAlgorithm DEFAULT pSpecifiedEmptyIdentifier }
//
// A default member is absent (has...() false) and is not written back.
#pragma once

#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define RRSAES_OAEP_params_COMPONENTS(X)                                               \
  X(RAlgorithmIdentifier, HashAlgorithm, hashAlgorithm, EXPLICIT(0), R_OPTIONAL)       \
  X(RAlgorithmIdentifier, MaskGenAlgorithm, maskGenAlgorithm, EXPLICIT(1), R_OPTIONAL) \
  X(RAlgorithmIdentifier, PSourceAlgorithm, pSourceAlgorithm, EXPLICIT(2), R_OPTIONAL)

class RRSAES_OAEP_params : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RRSAES_OAEP_params)
};
