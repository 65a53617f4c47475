// IssuerAndSerialNumber ::= SEQUENCE {                         (RFC 5652 10.2.4)
//   issuer       Name,
//   serialNumber CertificateSerialNumber }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RRDNSequence.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RIssuerAndSerialNumber_COMPONENTS(X)                                           \
  X(RRDNSequence, Issuer, issuer, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)           \
  X(ASN1Integer, SerialNumber, serialNumber, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)

class RIssuerAndSerialNumber : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RIssuerAndSerialNumber)
};
