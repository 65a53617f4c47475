#include "libaibase/clzenawrapper.h"

#include "base/ErrorCodes.h"
#include "base/QSBase.h"
#include "libaibase/clcertificate.h"
#include "libaibase/clcertlistprocess.h"
#include "libaibase/clcrypto.h"
#include "libaibase/clenvelopeddata.h"
#include "libaibase/clhash.h"
#include "libaibase/clmessages.h"
#include "libaibase/cltimestamptoken.h"

using namespace cl_text;

CLZENAWrapper::CLZENAWrapper() = default;

CLZENAWrapper::~CLZENAWrapper() = default;

int CLZENAWrapper::Fail(const char* method, const char* what, const CErrorTrace& wrapper) {
  m_nErrorCode = wrapper.GetErrorCode();
  QVA_ERROR_TRACE(method, what, m_nErrorCode, wrapper.GetErrorMsg().c_str());
  return m_nErrorCode;
}

int CLZENAWrapper::Encrypt(const ByteString& key, const ByteString& iv, const ByteString& data, ByteString& out) {
  CLCrypto cLCrypto;
  if (cLCrypto.Encrypt(CLCrypto::kTripleDES, CLCrypto::kModeCBC, key, iv, data) >= 1)
    return Fail(kZenaEncryptMethod, kCryptoEncryptWhat, cLCrypto);
  out = cLCrypto.TakeResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::Decrypt(const ByteString& key, const ByteString& iv, const ByteString& data, ByteString& out) {
  CLCrypto cLCrypto;
  if (cLCrypto.Decrypt(CLCrypto::kTripleDES, CLCrypto::kModeCBC, key, iv, data) >= 1)
    return Fail(kZenaDecryptMethod, kCryptoDecryptWhat, cLCrypto);
  out = cLCrypto.TakeResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::Random(int length, ByteString& out) {
  CLCrypto cLCrypto;
  if (cLCrypto.Random(length) >= 1) return Fail(kZenaRandomMethod, kCryptoRandomWhat, cLCrypto);
  out = cLCrypto.TakeResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::MakeHash(const ByteString& data, ByteString& out, int algorithm) {
  CLHash cLHash;
  if (cLHash.MakeHash(algorithm, data) >= 1) return Fail(kZenaMakeHashMethod, kHashMakeHashWhat, cLHash);
  out = cLHash.GetResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::MakeHashBig(const char* path, ByteString& out, int algorithm) {
  CLHash cLHash;
  if (cLHash.MakeHashBig(algorithm, path) >= 1) return Fail(kZenaMakeHashBigMethod, kHashMakeHashBigWhat, cLHash);
  out = cLHash.GetResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::Base64Enc(const ByteString& in, ByteString& out) {
  if (QSBase::base64Encode(in, &out) != 0) {
    m_nErrorCode = ERR_BASE64_ENCODE;
    QVA_ERROR_TRACE(kZenaBase64EncMethod, kBase64EncodeWhat, m_nErrorCode, kBase64EncodeFail);
    return m_nErrorCode;
  }
  return m_nErrorCode = 0;
}

int CLZENAWrapper::Base64Dec(const ByteString& in, ByteString& out) {
  if (QSBase::base64Decode(in, &out) != 0) {
    m_nErrorCode = ERR_BASE64_DECODE;
    QVA_ERROR_TRACE(kZenaBase64DecMethod, kBase64DecodeWhat, m_nErrorCode, kBase64DecodeFail);
    return m_nErrorCode;
  }
  return m_nErrorCode = 0;
}

int CLZENAWrapper::EnvelopData(const ByteString& certificate, const ByteString& content, ByteString& out) {
  CLEnvelopedData cLEnvelopedData;
  if (cLEnvelopedData.Envelop(2, certificate, content) >= 1)
    return Fail(kZenaEnvelopMethod, kEnvelopWhat, cLEnvelopedData);
  out = cLEnvelopedData.TakeResult();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::OpenEnvelopedData(const ByteString& envelope, const ByteString& certificate,
                                     const ByteString& privateKey, ByteString& out) {
  CLEnvelopedData cLEnvelopedData;
  if (cLEnvelopedData.OpenEnvelop(envelope, certificate, privateKey) >= 1)
    return Fail(kZenaOpenEnvelopMethod, kOpenEnvelopWhat, cLEnvelopedData);
  out = cLEnvelopedData.TakeResult();
  return m_nErrorCode = 0;
}

// ---- certificate checks ----------------------------------------------------

namespace {
// CheckCertPolicyOID's answer when the OIDs are equal: the sense callers rely on.
constexpr int kPolicyOIDEqual = 90;
}  // namespace

int CLZENAWrapper::VerifyCert(const ByteString& certificate) {
  CLCertificate cLCertificate;
  if (cLCertificate.VerifyCertificate(certificate) >= 1) {
    m_nErrorCode = ERR_FACADE_VERIFY_CERT;
    QVA_ERROR_TRACE(kZenaVerifyCertMethod, kCLCertVerifyWhat, m_nErrorCode, cLCertificate.GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  return m_nErrorCode = 0;
}

int CLZENAWrapper::CheckCertPolicyOID(const ByteString& certificate, const ByteString& oid) {
  CLCertificate cLCertificate;
  if (cLCertificate.ParseCertificate(certificate) >= 1)
    return Fail(kZenaCheckPolicyMethod, kCLCertParseWhat, cLCertificate);
  return m_nErrorCode = cLCertificate.GetPolicyOID() == oid ? kPolicyOIDEqual : 0;
}

int CLZENAWrapper::GetPolicyOID(const ByteString* certificate, ByteString* oid) {
  if (!certificate || !oid) return m_nErrorCode = 0;
  CLCertificate cLCertificate;
  if (cLCertificate.ParseCertificate(*certificate) >= 1)
    return Fail(kZenaGetPolicyMethod, kCLCertParseShortWhat, cLCertificate);
  *oid = cLCertificate.GetPolicyOID();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::GetIssuerDNOrganization(const ByteString& certificate, ByteString& organization) {
  CLCertificate cLCertificate;
  if (cLCertificate.ParseCertificate(certificate) >= 1)
    return Fail(kZenaIssuerOrgMethod, kCLCertParseWhat, cLCertificate);
  organization = CLCertificate::GetDNComponent(cLCertificate.GetIssuerDN(), CLCertificate::kOrganization);
  return m_nErrorCode = 0;
}

int CLZENAWrapper::GetSubjectFullDN(const ByteString& certificate, ByteString& subjectDN) {
  CLCertificate cLCertificate;
  if (cLCertificate.ParseCertificate(certificate) >= 1)
    return Fail(kZenaSubjectDNMethod, kCLCertParseWhat, cLCertificate);
  subjectDN = cLCertificate.GetSubjectDN();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::GetTermOfValidity(const ByteString& certificate, ByteString& startDate, ByteString& endDate) {
  CLCertificate cLCertificate;
  if (cLCertificate.ParseCertificate(certificate) >= 1)
    return Fail(kZenaTermMethod, kCLCertParseCutWhat, cLCertificate);
  startDate = cLCertificate.GetStartDate();
  endDate = cLCertificate.GetEndDate();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::ParseCert(const ByteString& certificate, ByteString& subjectDN) {
  ByteString issuerDN, serial;
  return ParseCert(certificate, subjectDN, issuerDN, serial);
}

int CLZENAWrapper::ParseCert(const ByteString& certificate, ByteString& subjectDN, ByteString& issuerDN,
                             ByteString& serial) {
  ByteString startDate, endDate, policyOID, signatureAlgorithm;
  return ParseCert(certificate, subjectDN, issuerDN, serial, startDate, endDate, policyOID, signatureAlgorithm);
}

int CLZENAWrapper::ParseCert(const ByteString& certificate, ByteString& subjectDN, ByteString& issuerDN,
                             ByteString& serial, ByteString& startDate, ByteString& endDate, ByteString& policyOID,
                             ByteString& signatureAlgorithm) {
  CLCertificate cLCertificate;
  if (cLCertificate.ParseCertificate(certificate) >= 1)
    return Fail(kZenaParseCertMethod, kCLCertParseWhat, cLCertificate);
  subjectDN = cLCertificate.GetSubjectDN();
  issuerDN = cLCertificate.GetIssuerDN();
  serial = cLCertificate.GetSerialNumber();
  startDate = cLCertificate.GetStartDate();
  endDate = cLCertificate.GetEndDate();
  policyOID = cLCertificate.GetPolicyOID();
  signatureAlgorithm = cLCertificate.GetSignatureAlgorithm();
  return m_nErrorCode = 0;
}

// ---- CRL and time stamp ----------------------------------------------------

int CLZENAWrapper::ParseCRL(const ByteString& crl, const ByteString& certificate, unsigned char* revoked) {
  CLCertListProcess cLCertListProcess;
  if (cLCertListProcess.isRevocked(crl, certificate, revoked) >= 1)
    return Fail(kZenaParseCRLMethod, kCLCrlIsRevockedWhat, cLCertListProcess);
  return m_nErrorCode = 0;
}

int CLZENAWrapper::getParseCRLInfo(const ByteString& crl, ByteString& issuerDN, std::int64_t* thisUpdate,
                                   std::int64_t* nextUpdate, int* revokedCount) {
  CLCertListProcess cLCertListProcess;
  if (cLCertListProcess.ParseCRL(crl) >= 1) return Fail(kZenaCRLInfoMethod, kCLCrlParseWhat, cLCertListProcess);
  issuerDN = cLCertListProcess.GetIssuerDN();
  *thisUpdate = cLCertListProcess.GetThisUpdate();
  *nextUpdate = cLCertListProcess.GetNextUpdate();
  *revokedCount = cLCertListProcess.GetRevokedCount();
  return m_nErrorCode = 0;
}

int CLZENAWrapper::ParseTimeStampToken(const ByteString& token, ByteString& tsaCertificate,
                                       ByteString& tsaSubjectDN) {
  CLTimeStampToken cLTimeStampToken;
  if (cLTimeStampToken.ParseTimeStampToken(token) >= 1)
    return Fail(kZenaTimeStampMethod, kCLTsParseWhat, cLTimeStampToken);
  tsaCertificate = cLTimeStampToken.GetTSACert();
  tsaSubjectDN = cLTimeStampToken.GetTSASubjectDN();
  return m_nErrorCode = 0;
}
