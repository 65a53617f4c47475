#include "libaibase/clcertlistprocess.h"

#include <ctime>

#include "ZENALib/QSProcess/PCertListProcess.h"
#include "base/ErrorCodes.h"
#include "base/Messages.h"
#include "libaibase/clcertificate.h"
#include "libaibase/clmessages.h"

using namespace cl_text;

CLCertListProcess::CLCertListProcess() = default;

CLCertListProcess::~CLCertListProcess() = default;

int CLCertListProcess::Fail(const char* method, const char* what, int code, const char* detail) {
  m_nErrorCode = code;
  QVA_ERROR_TRACE(method, what, code, detail);
  return code;
}

int CLCertListProcess::isRevocked(const ByteString& crl, const ByteString& certificate, unsigned char* revoked) {
  const char* method = kCrlIsRevockedMethod;
  CLCertificate cert;
  if (cert.ParseCertificate(certificate) != 0)
    return Fail(method, kCertParseWhat, cert.GetErrorCode(), cert.GetErrorMsg().c_str());

  PCertListProcess certListProcess;
  if (certListProcess.parseCertList(crl, nullptr, nullptr) != 0)
    return Fail(method, kCrlParseWhat, ERR_CRL_CHECK, certListProcess.getErrorMessage().c_str());
  ByteString issuerDN;
  std::time_t thisUpdate = 0;
  if (certListProcess.getIssuerDN(&issuerDN) != 0 || certListProcess.getThisUpdate(&thisUpdate) != 0)
    return Fail(method, kCrlParseWhat, ERR_CRL_CHECK, certListProcess.getErrorMessage().c_str());

  // The certificate must have been valid when the CRL was issued.
  CLCertificate atDate;
  if (atDate.CheckValidityTermAtSpecialDate(certificate, thisUpdate) != 0)
    return Fail(method, kCrlCheckAtDateWhat, ERR_CRL_CHECK, atDate.GetErrorMsg().c_str());
  if (issuerDN != cert.GetIssuerDN()) return Fail(method, qva_msg::kCrlNotFromIssuer, ERR_CRL_PARSE, "");

  int index = -1;
  bool listed = false;
  if (certListProcess.isRevoked(cert.GetSerialNumber(), &index, &listed) != 0)
    return Fail(method, kCrlIsRevokedWhat, ERR_CRL_IS_REVOKED, certListProcess.getErrorMessage().c_str());
  *revoked = listed ? 1 : 0;
  return m_nErrorCode = 0;
}

int CLCertListProcess::ParseCRL(const ByteString& crl) {
  PCertListProcess certListProcess;
  std::time_t thisUpdate = 0, nextUpdate = 0;
  if (certListProcess.parseCertList(crl, nullptr, nullptr) != 0 || certListProcess.getIssuerDN(&m_bsIssuerDN) != 0 ||
      certListProcess.getThisUpdate(&thisUpdate) != 0)
    return Fail(kCrlParseMethod, kCrlParseWhat, ERR_CRL_CHECK, certListProcess.getErrorMessage().c_str());
  m_nThisUpdate = thisUpdate;
  m_nNextUpdate = certListProcess.getNextUpdate(&nextUpdate) == 0 ? nextUpdate : 0;
  m_nRevokedCount = certListProcess.getRevokedCount();
  return m_nErrorCode = 0;
}

int CLCertListProcess::getRevokedCertificate(const ByteString& crl, int index, ByteString* serial,
                                             std::int64_t* revocationDate, int* reason) {
  PCertListProcess certListProcess;
  if (certListProcess.parseCertList(crl, nullptr, nullptr) != 0)
    return Fail(kCrlGetRevokedMethod, kCrlParseWhat, ERR_CRL_CHECK, certListProcess.getErrorMessage().c_str());
  PRevokedEntry entry;
  if (certListProcess.getRevokedCertificate(index, &entry) != 0)
    return Fail(kCrlGetRevokedMethod, kCrlGetRevokedWhat, ERR_CRL_IS_REVOKED,
                certListProcess.getErrorMessage().c_str());
  *serial = entry.serial;
  *revocationDate = entry.revocationDate;
  *reason = entry.reason;
  return m_nErrorCode = 0;
}
