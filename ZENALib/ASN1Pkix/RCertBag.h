// CertBag ::= SEQUENCE {                                      (RFC 7292 4.2.3)
//   certId    BAG-TYPE.&id ({CertTypes}),
//   certValue [0] EXPLICIT BAG-TYPE.&Type ({CertTypes}{@certId}) }
//     -- x509Certificate: OCTET STRING holding a DER certificate
//     -- sdsiCertificate: IA5String holding a Base64 certificate
//
// Two count rules: the bag has exactly two components ("The number of
// components is not two."), and the [0] wrapper holds exactly one element
// ("The number of components is not 1").
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RCertBag_COMPONENTS(X)                                                  \
  X(ASN1ObjectIdentifier, CertId, certId, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, CertValue, certValue, EXPLICIT(0), R_MANDATORY)

class RCertBag : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RCertBag)

 public:
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  int fromASN1View(const unsigned char* pData, int nData) override;
};
