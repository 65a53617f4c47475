// ESSCertID ::= SEQUENCE {                                     (RFC 2634 5.4.1)
//   certHash     Hash,                   -- SHA-1 of the whole certificate
//   issuerSerial IssuerSerial OPTIONAL }
// Hash ::= OCTET STRING
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RIssuerSerial.h"

#define RESSCertID_COMPONENTS(X)                                                         \
  X(ASN1OctetString, CertHash, certHash, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)   \
  X(RIssuerSerial, IssuerSerial, issuerSerial, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RESSCertID : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RESSCertID)
};
