// certificatePolicies ::= SEQUENCE SIZE (1..MAX) OF PolicyInformation   (RFC 5280 4.2.1.4)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RPolicyInformation.h"

class RCertificatePolicies : public RListOf<RPolicyInformation> {
 public:
  RCertificatePolicies() : RListOf("RCertificatePolicies") {}
};
