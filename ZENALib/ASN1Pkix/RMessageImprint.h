// MessageImprint ::= SEQUENCE {                                (RFC 3161 2.4.1)
//   hashAlgorithm AlgorithmIdentifier,
//   hashedMessage OCTET STRING }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

class RMessageImprint : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAlgorithmIdentifier, HashAlgorithm, hashAlgorithm)
  R_COMPONENT(ASN1OctetString, HashedMessage, hashedMessage)
};
