// One entry of PolicyMappings:                         (RFC 5280 4.2.1.5)
//   SEQUENCE { issuerDomainPolicy  CertPolicyId,
//              subjectDomainPolicy CertPolicyId }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RPolicyMapping_COMPONENTS(X)                                                                      \
  X(ASN1ObjectIdentifier, IssuerDomainPolicy, issuerDomainPolicy, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY)   \
  X(ASN1ObjectIdentifier, SubjectDomainPolicy, subjectDomainPolicy, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY)

class RPolicyMapping : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPolicyMapping)
};
