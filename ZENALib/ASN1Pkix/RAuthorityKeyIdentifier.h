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

class RAuthorityKeyIdentifier : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1OctetString, KeyIdentifier, keyIdentifier)
  R_COMPONENT(RGeneralNames, AuthorityCertIssuer, authorityCertIssuer)
  R_COMPONENT(ASN1Integer, AuthorityCertSerialNumber, authorityCertSerialNumber)
};
