// PBKDF2-params ::= SEQUENCE {                                (RFC 2898 A.2)
//   salt CHOICE {
//     specified   OCTET STRING,
//     otherSource AlgorithmIdentifier {{PBKDF2-SaltSources}} },
//   iterationCount INTEGER (1..MAX),
//   keyLength      INTEGER (1..MAX) OPTIONAL,
//   prf            AlgorithmIdentifier {{PBKDF2-PRFs}} DEFAULT algid-hmacWithSHA1 }
//
// The salt CHOICE is untagged and its two alternatives differ by universal tag,
// so it is one component accepting either; getSalt().getValue() holds the
// octets of a specified salt.
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define RPBKDF2_params_COMPONENTS(X)                                                                     \
  X(RAny, Salt, salt, TAGS(ASN1_TAG_OCTETSTRING, kSaltTags), R_MANDATORY)  /* specified | otherSource */ \
  X(ASN1Integer, IterationCount, iterationCount, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)               \
  X(ASN1Integer, KeyLength, keyLength, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL)                          \
  X(RAlgorithmIdentifier, Prf, prf, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RPBKDF2_params : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPBKDF2_params)

 public:
  // Whether the salt is the specified OCTET STRING (not an otherSource).
  bool isSaltSpecified() const { return m_salt.getIdentifier() == ASN1_TAG_OCTETSTRING; }
 public:
  // The key material (or password-derivation input) is wiped when released.
  RPBKDF2_params();
};
