// A subscriber's virtual identifier (Korean PKI identity verification,
// KCAC.TS.SIVID), carried in the subjectAltName of a certificate.
//   VID ::= SEQUENCE {
//     hashAlg   HashAlgorithm,            -- AlgorithmIdentifier
//     virtualID [0] EXPLICIT OCTET STRING }
#pragma once

#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/ROctetString.h"

#define RVID_COMPONENTS(X)                                                             \
  X(RAlgorithmIdentifier, HashAlg, hashAlg, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ROctetString, VirtualID, virtualID, EXPLICIT(0), R_MANDATORY)

class RVID : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RVID)
};
