#include "ZENALib/QSCrypto/QSHash.h"

#include "ZENALib/QSCrypto/ECSP.h"

namespace {
constexpr char kNotInit[] = "At first, You must init(DigestData_Init).";
}

QSHash::~QSHash() { releaseContext(); }

void QSHash::releaseContext() {
  ECSP_DigestDataFree(m_pECSPCtx);
  m_pECSPCtx = nullptr;
}

int QSHash::DigestData(int nAlgID, const ByteString& bsInput, ByteString& bsDigest) {
  int nCoreAlg;
  if (int rc = QS_ADMIT("DigestData", nAlgID, &nCoreAlg)) return rc;
  const int rc = ECSP_DigestData(nCoreAlg, bsInput.data(), bsInput.length(), &bsDigest);
  return rc ? QS_CORE_FAIL("DigestData", "ECSP_DigestData", rc) : 0;
}

int QSHash::DigestData_Init(int nAlgID) {
  releaseContext();  // a second Init starts over
  m_pECSPCtx = ECSP_DigestDataNew();
  if (!m_pECSPCtx) return QS_FAIL("DigestData_Init", "malloc", QS_ERR_MEMORY, "The memory(m_pECSPCtx) allocation is failed.");
  int nCoreAlg;
  int rc = QS_ADMIT("DigestData_Init", nAlgID, &nCoreAlg);
  if (rc == 0 && (rc = ECSP_DigestDataInit(nCoreAlg, m_pECSPCtx)) != 0) QS_CORE_FAIL("DigestData_Init", "ECSP_DigestDataInit", rc);
  if (rc) releaseContext();
  return rc;
}

int QSHash::DigestData_Update(const ByteString& bsInput) {
  return DigestData_Update(bsInput.data(), bsInput.length());
}

int QSHash::DigestData_Update(const unsigned char* pInput, int nLength) {
  if (!m_pECSPCtx) return QS_FAIL("DigestData_Update", "m_pECSPCtx", QS_ERR_NOT_INIT, kNotInit);
  const int rc = ECSP_DigestDataUpdate(m_pECSPCtx, pInput, nLength);
  return rc ? QS_CORE_FAIL("DigestData_Update", "ECSP_DigestDataUpdate", rc) : 0;
}

// The final step reports under the update's method and core names.
int QSHash::DigestData_Final(ByteString& bsDigest) {
  if (!m_pECSPCtx) return QS_FAIL("DigestData_Update", "m_pECSPCtx", QS_ERR_NOT_INIT, kNotInit);
  const int rc = ECSP_DigestDataFinal(m_pECSPCtx, &bsDigest);
  releaseContext();
  return rc ? QS_CORE_FAIL("DigestData_Update", "ECSP_DigestDataUpdate", rc) : 0;
}
