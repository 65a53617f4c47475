// DigestAlgorithmIdentifiers ::= SET OF DigestAlgorithmIdentifier   (RFC 5652 5.1)
#pragma once

#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RDigestAlgorithmIdentifiers : public RSetOf<RAlgorithmIdentifier> {
 public:
  RDigestAlgorithmIdentifiers() : RSetOf("RDigestAlgorithmIdentifiers") {}
};
