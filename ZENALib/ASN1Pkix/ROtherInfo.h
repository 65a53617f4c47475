// OtherInfo ::= SEQUENCE {                                    (RFC 2631 2.1.2, ANSI X9.42;
//   keyInfo     KeySpecificInfo,                               tagged EXPLICIT, as the
//   partyAInfo  [0] OCTET STRING OPTIONAL,                     RFC's example encodings show)
//   suppPubInfo [2] OCTET STRING }   -- key length in bits, 4 octets
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RKeySpecificInfo.h"

#define ROtherInfo_COMPONENTS(X)                                                   \
  X(RKeySpecificInfo, KeyInfo, keyInfo, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, PartyAInfo, partyAInfo, EXPLICIT(0), R_OPTIONAL)              \
  X(ASN1OctetString, SuppPubInfo, suppPubInfo, EXPLICIT(2), R_MANDATORY)

class ROtherInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(ROtherInfo)
};
