// ECC-CMS-SharedInfo ::= SEQUENCE {                           (RFC 5753 7.2)
//   keyInfo     AlgorithmIdentifier,
//   entityUInfo [0] EXPLICIT OCTET STRING OPTIONAL,  -- ukm
//   suppPubInfo [2] EXPLICIT OCTET STRING }          -- key length in bits, 4 octets
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define RECC_CMS_SharedInfo_COMPONENTS(X)                                              \
  X(RAlgorithmIdentifier, KeyInfo, keyInfo, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, EntityUInfo, entityUInfo, EXPLICIT(0), R_OPTIONAL)                \
  X(ASN1OctetString, SuppPubInfo, suppPubInfo, EXPLICIT(2), R_MANDATORY)

class RECC_CMS_SharedInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RECC_CMS_SharedInfo)
};
