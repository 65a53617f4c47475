// PolicyInformation ::= SEQUENCE {                     (RFC 5280 4.2.1.4)
//   policyIdentifier CertPolicyId,
//   policyQualifiers SEQUENCE SIZE (1..MAX) OF PolicyQualifierInfo OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RPolicyQualifiers.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RPolicyInformation : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, PolicyIdentifier, policyIdentifier)
  R_COMPONENT(RPolicyQualifiers, PolicyQualifiers, policyQualifiers)
};
