// OriginatorInfo ::= SEQUENCE {                                (RFC 5652 6.1)
//   certs [0] IMPLICIT CertificateSet OPTIONAL,
//   crls  [1] IMPLICIT RevocationInfoChoices OPTIONAL }
#pragma once

#include "ZENALib/ASN1Pkix/RCertificateRevocationLists.h"
#include "ZENALib/ASN1Pkix/RCertificateSet.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define ROriginatorInfo_COMPONENTS(X)                                 \
  X(RCertificateSet, Certs, certs, IMPLICIT(0), R_OPTIONAL)           \
  X(RCertificateRevocationLists, Crls, crls, IMPLICIT(1), R_OPTIONAL)

class ROriginatorInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(ROriginatorInfo)
};
