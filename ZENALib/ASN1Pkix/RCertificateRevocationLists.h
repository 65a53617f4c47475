// RevocationInfoChoices ::= SET OF RevocationInfoChoice         (RFC 5652 10.2.1)
// The crls of SignedData and OriginatorInfo: CRLs, and other revocation
// information (RFC 3852 had only the CRLs).
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RRevocationInfoChoice.h"

class RCertificateRevocationLists : public RSetOf<RRevocationInfoChoice> {
 public:
  RCertificateRevocationLists() : RSetOf("RCertificateRevocationLists") {}
};
