// CertificateList ::= SEQUENCE { tbsCertList        TBSCertList,
//                                signatureAlgorithm AlgorithmIdentifier,
//                                signatureValue     BIT STRING }   (RFC 5280 5.1)
// The signature member is named as in RCertificate.
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1Pkix/RTBSCertList.h"

#define RCertificateList_COMPONENTS(X)                                                                       \
  X(RTBSCertList, TbsCertList, tbsCertList, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                       \
  X(RAlgorithmIdentifier, SignatureAlgorithm, signatureAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1BitString, Signature, signature, UNIVERSAL(ASN1_TAG_BITSTRING), R_MANDATORY)

class RCertificateList : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RCertificateList)

 public:
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  int fromASN1View(const unsigned char* pData, int nData) override;
  // The tbsCertList exactly as received: the signature is checked over
  // these bytes, never over a re-encoding.
  const ByteString& getRawTBSCertList() const { return m_bsRawTBSCertList.bytes(); }

 protected:
  void componentDecoded(const ASN1Object& member, const unsigned char* p, int n) override;

 public:
  void detachViews() override {
    RStructure::detachViews();
    m_bsRawTBSCertList.detach();
  }

 private:
  ASN1ViewBytes m_bsRawTBSCertList;
};
