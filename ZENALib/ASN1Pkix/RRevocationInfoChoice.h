// RevocationInfoChoice ::= CHOICE {                             (RFC 5652 10.2.1)
//   crl   CertificateList,
//   other [1] IMPLICIT OtherRevocationInfoFormat }
// (other, e.g. an OCSP response of RFC 5940, is kept verbatim)
#pragma once

#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RCertificateList.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

#define RRevocationInfoChoice_COMPONENTS(X)                                   \
  X(RCertificateList, Crl, crl, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RAny, Other, other, IMPLICIT(1), R_MANDATORY)

class RRevocationInfoChoice : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RRevocationInfoChoice)
};
