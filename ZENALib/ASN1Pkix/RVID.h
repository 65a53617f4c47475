// A subscriber's virtual identifier (Korean PKI identity verification,
// KCAC.TS.SIVID), carried in the subjectAltName of a certificate.
//   VID ::= SEQUENCE {
//     hashAlg   HashAlgorithm,            -- AlgorithmIdentifier
//     virtualID [0] EXPLICIT OCTET STRING }
#pragma once

#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/ROctetString.h"

class RVID : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAlgorithmIdentifier, HashAlg, hashAlg)
  R_COMPONENT(ROctetString, VirtualID, virtualID)
};
