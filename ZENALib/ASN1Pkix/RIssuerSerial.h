// IssuerSerial ::= SEQUENCE {                                  (RFC 2634 5.4.1)
//   issuer       GeneralNames,
//   serialNumber CertificateSerialNumber }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RGeneralNames.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RIssuerSerial : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RGeneralNames, Issuer, issuer)
  R_COMPONENT(ASN1Integer, SerialNumber, serialNumber)
};
