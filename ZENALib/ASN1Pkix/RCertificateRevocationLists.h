// CertificateRevocationLists ::= SET OF CertificateList        (RFC 3852 10.2.1)
// The crls of SignedData and OriginatorInfo.
#pragma once

#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RCertificateRevocationLists : public RSetOf<RCertificateList> {
 public:
  RCertificateRevocationLists() : RSetOf("RCertificateRevocationLists") {}
};
