#include "ZENALib/QSCrypto/QSService.h"

#include <utility>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"

int QSService::Fail(const char* pszFile, int nLine, const char* pszMethod, const char* pszField, int nCode,
                    const char* pszMessage) {
  const char* base = pszFile ? pszFile : "";
  for (const char* p = base; *p; ++p) {
    if (*p == '/' || *p == '\\') base = p + 1;
  }
  // The message may be our own trace: copy it before the text is replaced.
  ByteString bsMessage(pszMessage ? pszMessage : "");
  ByteString bsLine;
  bsLine.format(bsMessage.length() > 0 ? "[%s:%d]%s::%s-%s(%d), " : "[%s:%d]%s::%s-%s(%d)", base, nLine,
                m_pszClass, pszMethod, pszField, nCode);
  bsLine += bsMessage;
  m_bsErrorMsg = std::move(bsLine);
  m_nErrorCode = nCode;
  return nCode;
}

int QSService::TranslateAndAdmit(const char* pszFile, int nLine, const char* pszMethod, int nAlgID, int* pnCoreAlg) {
  *pnCoreAlg = QSAlgorithm::TranslateAlgID(nAlgID);
  if (*pnCoreAlg == -1) {
    ByteString bsMsg;
    bsMsg.format("The AlgID(%d) is not supported.", nAlgID);
    return Fail(pszFile, nLine, pszMethod, "nAlgID", QS_ERR_ALGORITHM, bsMsg.c_str());
  }
  const int rc = ECSP_CheckLicense();
  if (rc != ECSP_OK) return Fail(pszFile, nLine, pszMethod, "license", QS_ERR_LICENSE, getECSPErrorText(rc));
  return 0;
}

int QSService::CoreFail(const char* pszFile, int nLine, const char* pszMethod, const char* pszCoreFunction, int nCode) {
  return Fail(pszFile, nLine, pszMethod, pszCoreFunction, nCode, getECSPErrorText(nCode));
}
