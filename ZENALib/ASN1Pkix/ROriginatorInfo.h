// OriginatorInfo ::= SEQUENCE {                                (RFC 5652 6.1)
//   certs [0] IMPLICIT CertificateSet OPTIONAL,
//   crls  [1] IMPLICIT RevocationInfoChoices OPTIONAL }
#pragma once

#include "ZENALib/ASN1Pkix/RCertificateRevocationLists.h"
#include "ZENALib/ASN1Pkix/RCertificateSet.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class ROriginatorInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RCertificateSet, Certs, certs)
  R_COMPONENT(RCertificateRevocationLists, Crls, crls)
};
