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

class RPBKDF2_params : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAny, Salt, salt)
  R_COMPONENT(ASN1Integer, IterationCount, iterationCount)
  R_COMPONENT(ASN1Integer, KeyLength, keyLength)
  R_COMPONENT(RAlgorithmIdentifier, Prf, prf)

 public:
  // Whether the salt is the specified OCTET STRING (not an otherSource).
  bool isSaltSpecified() const { return m_salt.getIdentifier() == ASN1_TAG_OCTETSTRING; }
 public:
  // The key material (or password-derivation input) is wiped when released.
  RPBKDF2_params();
};
