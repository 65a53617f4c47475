// A subscriber's certificate pair: the signing certificate and the
// key-management certificate that Korean PKI issues together.
//   Certificates ::= SEQUENCE {
//     signCert Certificate,
//     kmCert   Certificate }
#pragma once

#include "ZENALib/ASN1Pkix/RCertificate.h"

#define RCertificates_COMPONENTS(X)                                              \
  X(RCertificate, SignCert, signCert, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RCertificate, KmCert, kmCert, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)

class RCertificates : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RCertificates)
};
