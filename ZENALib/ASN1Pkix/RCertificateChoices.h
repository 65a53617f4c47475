// CertificateChoices ::= CHOICE {                              (RFC 5652 10.2.2)
//   certificate         Certificate,
//   extendedCertificate [0] IMPLICIT ExtendedCertificate,  -- Obsolete
//   v1AttrCert          [1] IMPLICIT AttributeCertificateV1, -- Obsolete
//   v2AttrCert          [2] IMPLICIT AttributeCertificateV2,
//   other               [3] IMPLICIT OtherCertificateFormat }
// (the tagged alternatives are kept verbatim)
#pragma once

#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

#define RCertificateChoices_COMPONENTS(X)                                              \
  X(RCertificate, Certificate, certificate, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RAny, ExtendedCertificate, extendedCertificate, IMPLICIT(0), R_MANDATORY)          \
  X(RAny, V1AttrCert, v1AttrCert, IMPLICIT(1), R_MANDATORY)                            \
  X(RAny, V2AttrCert, v2AttrCert, IMPLICIT(2), R_MANDATORY)                            \
  X(RAny, Other, other, IMPLICIT(3), R_MANDATORY)

class RCertificateChoices : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RCertificateChoices)
};
