// SignerInfo ::= SEQUENCE {                                    (RFC 5652 5.3)
//   version            CMSVersion,
//   sid                SignerIdentifier,
//   digestAlgorithm    DigestAlgorithmIdentifier,
//   signedAttrs        [0] IMPLICIT SignedAttributes OPTIONAL,
//   signatureAlgorithm SignatureAlgorithmIdentifier,
//   signature          SignatureValue,
//   unsignedAttrs      [1] IMPLICIT UnsignedAttributes OPTIONAL }
// SignatureValue ::= OCTET STRING
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RAttributes.h"
#include "ZENALib/ASN1Pkix/RSignerIdentifier.h"

#define RSignerInfo_COMPONENTS(X)                                                                            \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                                 \
  X(RSignerIdentifier, Sid, sid, ANY(), R_MANDATORY)                                                         \
  X(RAlgorithmIdentifier, DigestAlgorithm, digestAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)       \
  X(RAttributes, SignedAttrs, signedAttrs, IMPLICIT(0), R_OPTIONAL)                                          \
  X(RAlgorithmIdentifier, SignatureAlgorithm, signatureAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, Signature, signature, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)                     \
  X(RAttributes, UnsignedAttrs, unsignedAttrs, IMPLICIT(1), R_OPTIONAL)

class RSignerInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RSignerInfo)

 public:
  int fromASN1Object(const ByteString& bsData) override { return decodeOwned(bsData); }
  int fromASN1View(const unsigned char* pData, int nData) override;
  // The signed attributes as received, under the SET tag (0x31) the
  // signature covers (RFC 5652 5.4); empty when there are none.
  const ByteString& getRawSignedAttrs() const { return m_bsRawSignedAttrs; }

 protected:
  void componentDecoded(const ASN1Object& member, const unsigned char* p, int n) override;

 private:
  ByteString m_bsRawSignedAttrs;
};
