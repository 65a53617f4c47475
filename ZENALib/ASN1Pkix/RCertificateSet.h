// CertificateSet ::= SET OF CertificateChoices                 (RFC 5652 10.2.3)
#pragma once

#include "ZENALib/ASN1Pkix/RCertificateChoices.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RCertificateSet : public RSetOf<RCertificateChoices> {
 public:
  RCertificateSet() : RSetOf("RCertificateSet") {}
};
