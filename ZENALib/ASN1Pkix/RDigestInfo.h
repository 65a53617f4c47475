// DigestInfo ::= SEQUENCE {                                   (RFC 8017 9.2, RFC 7292 4)
//   digestAlgorithm DigestAlgorithmIdentifier,
//   digest          OCTET STRING }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

class RDigestInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAlgorithmIdentifier, DigestAlgorithm, digestAlgorithm)
  R_COMPONENT(ASN1OctetString, Digest, digest)
};
