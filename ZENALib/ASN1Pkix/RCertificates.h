// A subscriber's certificate pair: the signing certificate and the
// key-management certificate that Korean PKI issues together.
//   Certificates ::= SEQUENCE {
//     signCert Certificate,
//     kmCert   Certificate }
#pragma once

#include "ZENALib/ASN1Pkix/RCertificate.h"

class RCertificates : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RCertificate, SignCert, signCert)
  R_COMPONENT(RCertificate, KmCert, kmCert)
};
