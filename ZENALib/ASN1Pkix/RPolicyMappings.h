// PolicyMappings ::= SEQUENCE SIZE (1..MAX) OF SEQUENCE {
//   issuerDomainPolicy CertPolicyId, subjectDomainPolicy CertPolicyId }   (RFC 5280 4.2.1.5)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RPolicyMapping.h"

class RPolicyMappings : public RListOf<RPolicyMapping> {
 public:
  RPolicyMappings() : RListOf("RPolicyMappings") {}
};
