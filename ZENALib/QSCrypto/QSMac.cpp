#include "ZENALib/QSCrypto/QSMac.h"

#include "ZENALib/QSCrypto/ECSP.h"

int QSMac::GenerateMAC(int nAlgID, const ByteString& bsKey, const ByteString& bsInput, ByteString& bsMac) {
  int nCoreAlg;
  if (int rc = QS_ADMIT("GenerateMAC", nAlgID, &nCoreAlg)) return rc;
  const int rc = ECSP_GenerateMAC(nCoreAlg, bsKey.data(), bsKey.length(), bsInput.data(), bsInput.length(), &bsMac);
  return rc ? QS_CORE_FAIL("GenerateMAC", "ECSP_GenerateMAC", rc) : 0;
}

int QSMac::VerifyMAC(int nAlgID, const ByteString& bsKey, const ByteString& bsInput, const ByteString& bsMac) {
  int nCoreAlg;
  if (int rc = QS_ADMIT("VerifyMAC", nAlgID, &nCoreAlg)) return rc;
  const int rc = ECSP_VerifyMAC(nCoreAlg, bsKey.data(), bsKey.length(), bsInput.data(), bsInput.length(),
                                bsMac.data(), bsMac.length());
  return rc ? QS_CORE_FAIL("VerifyMAC", "ECSP_VerifyMAC", rc) : 0;
}
