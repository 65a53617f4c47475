// PSignedDataProcess: parses a CMS SignedData (a DER ContentInfo), finds
// each signer's certificate and verifies every signature, counter-signatures
// included (RFC 5652 5, 11.4).
//
// Only version 1 SignedData and SignerInfo are accepted. A signer is found
// by issuerAndSerialNumber or by subjectKeyIdentifier (the SHA-1 of the
// certificate's public key bits) among the embedded certificates and those
// given to parseSignedData. Every method returns 0 or a positive code and
// leaves the failure in the trace (PTrace.h); after a failed parse the
// accessors answer "First, Use parseSignedData().".
#pragma once

#include <ctime>
#include <vector>

#include "ZENALib/ASN1Pkix/RSignedData.h"
#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

class PSignedDataProcess : public PTrace {
 public:
  // Codes of the refusals (each with its fixed text, PSignedDataMessages.h).
  static constexpr int ERR_DECODE = 1;           // the ContentInfo or SignedData does not decode
  static constexpr int ERR_NOT_SIGNED_DATA = 2;  // "It is not signedData."
  static constexpr int ERR_VERSION = 3;          // "Only v1 signedData is supported."
  static constexpr int ERR_EXTENDED_CERT = 4;    // "extenedCert is not supported."
  static constexpr int ERR_CERT_TYPE = 5;        // "Unkonwn certificate type."
  static constexpr int ERR_NO_SIGNER_INFO = 6;   // "The Data does not Signed. (Ther signerInfo is empty)"
  static constexpr int ERR_SIGNER_VERSION = 7;   // "Only v1 signerInfo supported."
  static constexpr int ERR_NO_SIGNER_CERT = 8;   // "Can't verify signature. Because there is not signer certificate."
  static constexpr int ERR_CONTENT_TYPE = 9;   // "SignedAttrs.ContentType are different from ContentInfo.ContentType."
  static constexpr int ERR_CONTENT_HASH = 10;  // "Content Hash value is not same."
  static constexpr int ERR_CERT_HASH = 11;     // "Invalid CertHash value."
  static constexpr int ERR_PSS_HASH = 12;      // "Only sha1 with RSA-PSS is supported."
  static constexpr int ERR_NO_CERTS = 13;      // "SignedData does not have certificates."
  static constexpr int ERR_NOT_PARSED = 14;    // "First, Use parseSignedData()."
  static constexpr int ERR_INDEX = 15;         // an index out of range
  static constexpr int ERR_ATTRIBUTE = 16;     // an attribute that is absent or does not decode
  static constexpr int ERR_ALGORITHM = 17;     // a digest or signature algorithm not known

  PSignedDataProcess() : PTrace("PSignedDataProcess") {}

  // The content of a detached SignedData, set before parseSignedData.
  void setDetachedContent(const ByteString& bsContent) {
    m_bsDetached = bsContent;
    m_bHaveDetached = true;
  }
  // Parses and verifies; addCerts are certificates (DER) to search besides
  // the embedded ones.
  int parseSignedData(const ByteString& bsSignedData, const std::vector<ByteString>& addCerts = {});

  int processContentInfo(const ByteString& bsContentInfo);
  int processEncapContentInfo();
  int processCertificateSet();
  int processSignerInfos();
  // A counterSignature (a SignerInfo) over the signature value it signs.
  int processCounterSignature(const RSignerInfo& counter, const ByteString& bsSignatureValue);
  // The index in the certificate list (embedded first, then added) of the
  // certificate sid names; ERR_NO_SIGNER_CERT when there is none.
  int haveValidSignerIdentifier(const RSignerIdentifier& sid, int* pnCertIndex);

  // Accessors, valid after a successful parseSignedData.
  int getCerts(std::vector<ByteString>* out);  // the embedded certificates
  int getCert(int nIndex, ByteString* out);
  int getSignerCert(int nIndex, ByteString* out);
  int getSignerInfoCnt(int* pnCount);
  int getSignerInfo(int nIndex, RSignerInfo* out);
  // The first signed attribute of the type (OID text) of signer nIndex.
  int getSignerAttribute(int nIndex, const char* pszOID, RAttribute* out);
  int getSigningTime(int nIndex, std::time_t* ptTime);
  const ByteString& getContent() const { return m_bsContent; }
  const ByteString& getContentType() const { return m_bsContentType; }
  const RSignedData& getSignedData() const { return m_signedData; }

 private:
  int verifySigner(const char* pszMethod, const RSignerInfo& si, const ByteString& bsContent, bool bCounter,
                   int* pnCertIndex);
  int checkParsed(const char* pszMethod);
  void clear();

  RSignedData m_signedData;
  ByteString m_bsContent;
  ByteString m_bsContentType;
  ByteString m_bsDetached;
  bool m_bHaveDetached = false;
  int m_nEmbedded = 0;
  std::vector<ByteString> m_certs;     // embedded, then added
  std::vector<int> m_signerCertIndex;  // per signer, into m_certs
  bool m_bParsed = false;
  int m_nDepth = 0;  // counter-signature nesting
};
