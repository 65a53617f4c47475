// ECC-CMS-SharedInfo ::= SEQUENCE {                           (RFC 5753 7.2)
//   keyInfo     AlgorithmIdentifier,
//   entityUInfo [0] EXPLICIT OCTET STRING OPTIONAL,  -- ukm
//   suppPubInfo [2] EXPLICIT OCTET STRING }          -- key length in bits, 4 octets
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

class RECC_CMS_SharedInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAlgorithmIdentifier, KeyInfo, keyInfo)
  R_COMPONENT(ASN1OctetString, EntityUInfo, entityUInfo)
  R_COMPONENT(ASN1OctetString, SuppPubInfo, suppPubInfo)
};
