// Certificate ::= SEQUENCE { tbsCertificate TBSCertificate,
//                            signatureAlgorithm AlgorithmIdentifier,
//                            signatureValue BIT STRING }   (RFC 5280 4.1)
#pragma once

#include "ZENALib/ASN1Pkix/RTBSCertificate.h"

class RCertificate : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RTBSCertificate, TbsCertificate, tbsCertificate)
  R_COMPONENT(RAlgorithmIdentifier, SignatureAlgorithm, signatureAlgorithm)
  R_COMPONENT(ASN1BitString, Signature, signature)

 public:
  int fromASN1Object(const ByteString& bsData) override { return fromASN1View(viewOf(bsData), bsData.length()); }
  int fromASN1View(const unsigned char* pData, int nData) override;
  // The tbsCertificate exactly as received: a signature is checked over
  // these bytes, never over a re-encoding.
  const ByteString& getRawTBSCertificate() const { return m_bsRawTBSCertificate; }

 protected:
  void componentDecoded(const ASN1Object& member, const unsigned char* p, int n) override;

 private:
  ByteString m_bsRawTBSCertificate;
};
