// DigestInfo ::= SEQUENCE {                                   (RFC 8017 9.2, RFC 7292 4)
//   digestAlgorithm DigestAlgorithmIdentifier,
//   digest          OCTET STRING }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define RDigestInfo_COMPONENTS(X)                                                                      \
  X(RAlgorithmIdentifier, DigestAlgorithm, digestAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, Digest, digest, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)

class RDigestInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RDigestInfo)
};
