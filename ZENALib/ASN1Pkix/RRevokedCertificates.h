// revokedCertificates ::= SEQUENCE OF SEQUENCE { ... }   (RFC 5280 5.1)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RRevokedCertificate.h"

class RRevokedCertificates : public RListOf<RRevokedCertificate> {
 public:
  RRevokedCertificates() : RListOf("RRevokedCertificates") {}
};
