// One entry of PolicyMappings:                         (RFC 5280 4.2.1.5)
//   SEQUENCE { issuerDomainPolicy  CertPolicyId,
//              subjectDomainPolicy CertPolicyId }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RPolicyMapping : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, IssuerDomainPolicy, issuerDomainPolicy)
  R_COMPONENT(ASN1ObjectIdentifier, SubjectDomainPolicy, subjectDomainPolicy)
};
