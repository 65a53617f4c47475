// PolicyInformation ::= SEQUENCE {                     (RFC 5280 4.2.1.4)
//   policyIdentifier CertPolicyId,
//   policyQualifiers SEQUENCE SIZE (1..MAX) OF PolicyQualifierInfo OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RPolicyQualifiers.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RPolicyInformation_COMPONENTS(X)                                                             \
  X(ASN1ObjectIdentifier, PolicyIdentifier, policyIdentifier, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY)  \
  X(RPolicyQualifiers, PolicyQualifiers, policyQualifiers, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RPolicyInformation : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPolicyInformation)
};
