// Certificate ::= SEQUENCE { tbsCertificate TBSCertificate,
//                            signatureAlgorithm AlgorithmIdentifier,
//                            signatureValue BIT STRING }   (RFC 5280 4.1)
#pragma once

#include "ZENALib/ASN1Pkix/RTBSCertificate.h"

#define RCertificate_COMPONENTS(X)                                                                           \
  X(RTBSCertificate, TbsCertificate, tbsCertificate, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)              \
  X(RAlgorithmIdentifier, SignatureAlgorithm, signatureAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1BitString, Signature, signature, UNIVERSAL(ASN1_TAG_BITSTRING), R_MANDATORY)

class RCertificate : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RCertificate)

 public:
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  int fromASN1View(const unsigned char* pData, int nData) override;
  // The tbsCertificate exactly as received: a signature is checked over
  // these bytes, never over a re-encoding.
  const ByteString& getRawTBSCertificate() const { return m_bsRawTBSCertificate.bytes(); }

 protected:
  void componentDecoded(const ASN1Object& member, const unsigned char* p, int n) override;

 public:
  void detachViews() override {
    RStructure::detachViews();
    m_bsRawTBSCertificate.detach();
  }

 private:
  ASN1ViewBytes m_bsRawTBSCertificate;
};
