// RSAES-OAEP-params ::= SEQUENCE {                            (RFC 4055 4.1; EXPLICIT TAGS)
//   hashAlgorithm    [0] HashAlgorithm    DEFAULT sha1Identifier,
//   maskGenAlgorithm [1] MaskGenAlgorithm DEFAULT mgf1SHA1Identifier,
//   pSourceAlgorithm [2] PSourceAlgorithm DEFAULT pSpecifiedEmptyIdentifier }
//
// A default member is absent (has...() false) and is not written back.
#pragma once

#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

class RRSAES_OAEP_params : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAlgorithmIdentifier, HashAlgorithm, hashAlgorithm)
  R_COMPONENT(RAlgorithmIdentifier, MaskGenAlgorithm, maskGenAlgorithm)
  R_COMPONENT(RAlgorithmIdentifier, PSourceAlgorithm, pSourceAlgorithm)
};
