// IssuerAndSerialNumber ::= SEQUENCE {                         (RFC 5652 10.2.4)
//   issuer       Name,
//   serialNumber CertificateSerialNumber }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RRDNSequence.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RIssuerAndSerialNumber : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RRDNSequence, Issuer, issuer)
  R_COMPONENT(ASN1Integer, SerialNumber, serialNumber)
};
