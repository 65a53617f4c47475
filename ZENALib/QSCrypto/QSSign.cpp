#include "ZENALib/QSCrypto/QSSign.h"

#include "ZENALib/QSCrypto/ECSP.h"

int QSSign::SignData(int nAlgID, const ByteString& bsPrivateKey, const ByteString& bsInput, ByteString& bsSignature) {
  int nCoreAlg;
  if (int rc = QS_ADMIT("SignData", nAlgID, &nCoreAlg)) return rc;
  const int rc = ECSP_SignData(nCoreAlg, bsPrivateKey.data(), bsPrivateKey.length(), bsInput.data(),
                               bsInput.length(), &bsSignature);
  return rc ? QS_CORE_FAIL("SignData", "ECSP_SignData", rc) : 0;
}

int QSSign::VerifyData(int nAlgID, const ByteString& bsPublicKey, const ByteString& bsInput,
                       const ByteString& bsSignature) {
  int nCoreAlg;
  if (int rc = QS_ADMIT("VerifyData", nAlgID, &nCoreAlg)) return rc;
  const int rc = ECSP_VerifyData(nCoreAlg, bsPublicKey.data(), bsPublicKey.length(), bsInput.data(),
                                 bsInput.length(), bsSignature.data(), bsSignature.length());
  return rc ? QS_CORE_FAIL("VerifyData", "ECSP_VerifyData", rc) : 0;
}
