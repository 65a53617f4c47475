// AuthorityKeyIdentifier ::= SEQUENCE {                (RFC 5280 4.2.1.1)
//   keyIdentifier             [0] KeyIdentifier OPTIONAL,
//   authorityCertIssuer       [1] GeneralNames OPTIONAL,
//   authorityCertSerialNumber [2] CertificateSerialNumber OPTIONAL }
// The module is implicitly tagged.
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RAuthorityKeyIdentifier_COMPONENTS(X)                                                   \
  X(ASN1OctetString, KeyIdentifier, keyIdentifier, IMPLICIT(0), R_OPTIONAL)                     \
  X(RGeneralNames, AuthorityCertIssuer, authorityCertIssuer, IMPLICIT(1), R_OPTIONAL)           \
  X(ASN1Integer, AuthorityCertSerialNumber, authorityCertSerialNumber, IMPLICIT(2), R_OPTIONAL)

class RAuthorityKeyIdentifier : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RAuthorityKeyIdentifier)
};
