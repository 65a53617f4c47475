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

class RCertificateChoices : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(RCertificate, Certificate, certificate)
  R_ALTERNATIVE(RAny, ExtendedCertificate, extendedCertificate)
  R_ALTERNATIVE(RAny, V1AttrCert, v1AttrCert)
  R_ALTERNATIVE(RAny, V2AttrCert, v2AttrCert)
  R_ALTERNATIVE(RAny, Other, other)
};
