// ESSCertID ::= SEQUENCE {                                     (RFC 2634 5.4.1)
//   certHash     Hash,                   -- SHA-1 of the whole certificate
//   issuerSerial IssuerSerial OPTIONAL }
// Hash ::= OCTET STRING
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RIssuerSerial.h"

class RESSCertID : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1OctetString, CertHash, certHash)
  R_COMPONENT(RIssuerSerial, IssuerSerial, issuerSerial)
};
