// revokedCertificates entry of TBSCertList:            (RFC 5280 5.1)
//   SEQUENCE { userCertificate    CertificateSerialNumber,
//              revocationDate     Time,
//              crlEntryExtensions Extensions OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RExtensions.h"
#include "ZENALib/ASN1Pkix/RStructure.h"
#include "ZENALib/ASN1Pkix/RTime.h"

#define RRevokedCertificate_COMPONENTS(X)                                                          \
  X(ASN1Integer, UserCertificate, userCertificate, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)       \
  X(RTime, RevocationDate, revocationDate, TAGS(ASN1_TAG_UTCTIME, R_TAGS_TIME), R_MANDATORY)       \
  X(RExtensions, CrlEntryExtensions, crlEntryExtensions, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RRevokedCertificate : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RRevokedCertificate)
};
