// PTimeStampResponseProcess: opens an RFC 3161 time-stamp token (a CMS
// SignedData over a TSTInfo), verifies it through PSignedDataProcess, checks
// it by the rules of RFC 3161 2.4.2 that the client enforces, and gives
// access to its fields. The messageImprint is returned for the caller to
// compare with its own data.
//
// parseTimeStampToken checks, in order: the ContentInfo type, the SignedData
// (signatures included), the eContentType id-ct-TSTInfo, the TSTInfo version
// 1, a single signer, the signingCertificate attribute, the tsa name against
// the signer certificate's names, and the timeStamping key purpose.
#pragma once

#include <memory>

#include "ZENALib/ASN1Pkix/RTSTInfo.h"
#include "ZENALib/QSProcess/PSignedDataProcess.h"
#include "ZENALib/QSProcess/PTrace.h"
#include "base/ByteString.h"

class PTimeStampResponseProcess : public PTrace {
 public:
  static constexpr int ERR_DECODE = 1;           // the ContentInfo or TSTInfo does not decode
  static constexpr int ERR_NOT_SIGNED_DATA = 2;  // "contentType is not signedData"
  static constexpr int ERR_SIGNED_DATA = 3;      // the SignedData refused (its trace follows)
  static constexpr int ERR_NOT_TSTINFO = 4;      // "TSTInfo eContentType is not id-ct-TSTInfo"
  static constexpr int ERR_VERSION = 5;          // "Only support TSTInfo version 1."
  static constexpr int ERR_SIGNER_COUNT = 6;     // "The Time-stamp token MUST NOT contain ..."
  static constexpr int ERR_SIGNING_CERT = 7;     // no signingCertificate attribute
  static constexpr int ERR_TSA_NAME = 8;         // "tsa field MUST correspond ..."
  static constexpr int ERR_KEY_PURPOSE = 9;      // "This certificate is not for time stamp."
  static constexpr int ERR_NO_SIGNER_CERT = 10;  // "SignerCert does not exist."
  static constexpr int ERR_NO_NONCE = 11;        // "Nonce does not exist."
  static constexpr int ERR_NOT_PARSED = 12;      // an accessor before a successful parse

  PTimeStampResponseProcess() : PTrace("PTimeStampResponseProcess") {}

  // Decodes and checks a token (DER ContentInfo); 0 on success.
  int parseTimeStampToken(const ByteString& tsToken);

  int getTSACert(ByteString* out);    // the signer's certificate (DER)
  int getPolicy(ByteString* out);     // the policy OID, blank-separated arcs
  int getHashAlg(ByteString* out);    // the messageImprint hash OID, blank-separated arcs
  int getHashedMsg(ByteString* out);  // the messageImprint hash value
  int getSerialNum(ByteString* out);  // the serial number's content octets
  int getNonce(ByteString* out);      // the nonce's content octets
  // The decoded TSTInfo; null before a successful parse.
  const RTSTInfo* getTSTInfo() const { return m_bParsed ? m_pTSTInfo.get() : nullptr; }

 private:
  int checkTsaName(const ByteString& bsCert);
  int checkKeyPurpose(const ByteString& bsCert);
  int checkParsed(const char* pszMethod);

  PSignedDataProcess m_signedDataProcess;
  std::unique_ptr<RTSTInfo> m_pTSTInfo;
  ByteString m_bsTSACert;
  bool m_bParsed = false;
};
