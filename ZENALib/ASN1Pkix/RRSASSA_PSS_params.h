// RSASSA-PSS-params ::= SEQUENCE {                            (RFC 4055 3.1; EXPLICIT TAGS)
//   hashAlgorithm    [0] HashAlgorithm    DEFAULT sha1Identifier,
//   maskGenAlgorithm [1] MaskGenAlgorithm DEFAULT mgf1SHA1Identifier,
//   saltLength       [2] INTEGER          DEFAULT 20,
//   trailerField     [3] INTEGER          DEFAULT 1 }
//
// A default member is absent (has...() false) and is not written back.
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define RRSASSA_PSS_params_COMPONENTS(X)                                               \
  X(RAlgorithmIdentifier, HashAlgorithm, hashAlgorithm, EXPLICIT(0), R_OPTIONAL)       \
  X(RAlgorithmIdentifier, MaskGenAlgorithm, maskGenAlgorithm, EXPLICIT(1), R_OPTIONAL) \
  X(ASN1Integer, SaltLength, saltLength, EXPLICIT(2), R_OPTIONAL)                      \
  X(ASN1Integer, TrailerField, trailerField, EXPLICIT(3), R_OPTIONAL)

class RRSASSA_PSS_params : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RRSASSA_PSS_params)

 public:
  // The salt length and trailer field in force (20 and 1 when left out).
  int getSaltLengthValue() const { return hasSaltLength() ? m_saltLength.getInteger() : 20; }
  int getTrailerFieldValue() const { return hasTrailerField() ? m_trailerField.getInteger() : 1; }
};
