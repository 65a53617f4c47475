// MessageImprint ::= SEQUENCE {                                (RFC 3161 2.4.1)
//   hashAlgorithm AlgorithmIdentifier,
//   hashedMessage OCTET STRING }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define RMessageImprint_COMPONENTS(X)                                                              \
  X(RAlgorithmIdentifier, HashAlgorithm, hashAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, HashedMessage, hashedMessage, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)

class RMessageImprint : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RMessageImprint)
};
