#include "libaibase/cltimestamptoken.h"

#include "ZENALib/QSProcess/PTimeStampResponseProcess.h"
#include "base/ErrorCodes.h"
#include "libaibase/clcertificate.h"
#include "libaibase/clmessages.h"

using namespace cl_text;

CLTimeStampToken::CLTimeStampToken() = default;

CLTimeStampToken::~CLTimeStampToken() = default;

int CLTimeStampToken::ParseTimeStampToken(const ByteString& token) {
  PTimeStampResponseProcess tsProcess;
  if (tsProcess.parseTimeStampToken(token) != 0 || tsProcess.getTSACert(&m_bsTSACert) != 0 ||
      tsProcess.getPolicy(&m_bsPolicy) != 0 || tsProcess.getHashedMsg(&m_bsHashedMessage) != 0 ||
      tsProcess.getSerialNum(&m_bsSerialNumber) != 0) {
    m_nErrorCode = ERR_TIMESTAMP_PARSE;
    QVA_ERROR_TRACE(kTsParseMethod, kTsParseWhat, m_nErrorCode, tsProcess.getErrorMessage().c_str());
    return m_nErrorCode;
  }
  CLCertificate cert;
  if (cert.ParseCertificate(m_bsTSACert) != 0) {
    m_nErrorCode = cert.GetErrorCode();
    QVA_ERROR_TRACE(kTsParseMethod, kCertParseWhat, m_nErrorCode, cert.GetErrorMsg().c_str());
    return m_nErrorCode;
  }
  m_bsTSASubjectDN = cert.GetSubjectDN();
  return m_nErrorCode = 0;
}
