// revokedCertificates entry of TBSCertList:            (RFC 5280 5.1)
//   SEQUENCE { userCertificate    CertificateSerialNumber,
//              revocationDate     Time,
//              crlEntryExtensions Extensions OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RExtensions.h"
#include "ZENALib/ASN1Pkix/RStructure.h"
#include "ZENALib/ASN1Pkix/RTime.h"

class RRevokedCertificate : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, UserCertificate, userCertificate)
  R_COMPONENT(RTime, RevocationDate, revocationDate)
  R_COMPONENT(RExtensions, CrlEntryExtensions, crlEntryExtensions)
};
