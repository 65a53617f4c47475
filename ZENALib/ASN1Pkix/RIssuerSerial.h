// IssuerSerial ::= SEQUENCE {                                  (RFC 2634 5.4.1)
//   issuer       GeneralNames,
//   serialNumber CertificateSerialNumber }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RIssuerSerial_COMPONENTS(X)                                                    \
  X(RGeneralNames, Issuer, issuer, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)          \
  X(ASN1Integer, SerialNumber, serialNumber, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)

class RIssuerSerial : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RIssuerSerial)
};
