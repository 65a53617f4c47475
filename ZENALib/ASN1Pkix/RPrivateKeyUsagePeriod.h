// PrivateKeyUsagePeriod ::= SEQUENCE {                 (RFC 3280 4.2.1.4)
//   notBefore [0] GeneralizedTime OPTIONAL,
//   notAfter  [1] GeneralizedTime OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RPrivateKeyUsagePeriod_COMPONENTS(X)                            \
  X(ASN1GeneralizedTime, NotBefore, notBefore, IMPLICIT(0), R_OPTIONAL) \
  X(ASN1GeneralizedTime, NotAfter, notAfter, IMPLICIT(1), R_OPTIONAL)

class RPrivateKeyUsagePeriod : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPrivateKeyUsagePeriod)
};
