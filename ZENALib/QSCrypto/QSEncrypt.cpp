#include "ZENALib/QSCrypto/QSEncrypt.h"

#include <memory>
#include <new>
#include <utility>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"

int QSEncrypt::EncryptData(int nAlgID, int nMode, int nPaddingType, const ByteString& bsKey, const ByteString& bsIV,
                           const ByteString& bsInput, ByteString& bsOutput) {
  return Crypt("EncryptData", true, true, nAlgID, nMode, nPaddingType, bsKey, bsIV, bsInput, bsOutput);
}

int QSEncrypt::DecryptData(int nAlgID, int nMode, int nPaddingType, const ByteString& bsKey, const ByteString& bsIV,
                           const ByteString& bsInput, ByteString& bsOutput) {
  return Crypt("DecryptData", false, true, nAlgID, nMode, nPaddingType, bsKey, bsIV, bsInput, bsOutput);
}

int QSEncrypt::EncryptData_NoGenKey(int nAlgID, int nMode, int nPaddingType, const ByteString& bsKey,
                                    const ByteString& bsIV, const ByteString& bsInput, ByteString& bsOutput) {
  return Crypt("EncryptData_NoGenKey", true, false, nAlgID, nMode, nPaddingType, bsKey, bsIV, bsInput, bsOutput);
}

int QSEncrypt::DecryptData_NoGenKey(int nAlgID, int nMode, int nPaddingType, const ByteString& bsKey,
                                    const ByteString& bsIV, const ByteString& bsInput, ByteString& bsOutput) {
  return Crypt("DecryptData_NoGenKey", false, false, nAlgID, nMode, nPaddingType, bsKey, bsIV, bsInput, bsOutput);
}

int QSEncrypt::Crypt(const char* pszMethod, bool bEncrypt, bool bGenKey, int nAlgID, int nMode, int nPaddingType,
                     const ByteString& bsKey, const ByteString& bsIV, const ByteString& bsInput,
                     ByteString& bsOutput) {
  int nCoreAlg;
  if (int rc = QS_ADMIT(pszMethod, nAlgID, &nCoreAlg)) return rc;
  ByteString bsMsg;
  const int nCoreMode = QSAlgorithm::TranslateMode(nMode);
  if (nCoreMode == -1) {
    bsMsg.format("The Mode(%d) is not supported.", nMode);
    return QS_FAIL(pszMethod, "nMode", QS_ERR_MODE, bsMsg.c_str());
  }
  const int nCorePadding = QSAlgorithm::TranslatePadding(nPaddingType);
  if (nCorePadding == -1) {
    bsMsg.format("The PaddingType(%d) is not supported.", nPaddingType);
    return QS_FAIL(pszMethod, "nPaddingType", QS_ERR_MODE, bsMsg.c_str());
  }

  std::unique_ptr<ECSP_KEY> pKey(new (std::nothrow) ECSP_KEY);
  if (!pKey) return QS_FAIL(pszMethod, "pKey", QS_ERR_MEMORY, "Memory(pKey) allocation is failed.");
  if (bGenKey) {
    if (int rc = ECSP_GenerateKey(nCoreAlg, bsKey.data(), bsKey.length(), pKey.get())) {
      return QS_FAIL(pszMethod, "ECSP_GenerateKey", rc, "ECSP_GenerateKey error");
    }
  } else {
    pKey->nAlgID = nCoreAlg;
    pKey->pbKey = bsKey.data();
    pKey->nKeyLen = bsKey.length();
  }

  const int nRoom = ECSP_GetOutputLength(nCoreAlg, nCoreMode, nCorePadding, bsInput.length(), bEncrypt);
  ByteString bsOut;
  if (nRoom < 0 || bsOut.resize(nRoom) != BS_OK) {
    return QS_FAIL(pszMethod, "malloc", QS_ERR_MEMORY, "Momory allocation is failed.");
  }
  int nOutLen = nRoom;
  const int rc = bEncrypt ? ECSP_EncryptData(nCoreAlg, nCoreMode, nCorePadding, pKey.get(), bsIV.data(),
                                             bsIV.length(), bsInput.data(), bsInput.length(),
                                             bsOut.buffer(), &nOutLen)
                          : ECSP_DecryptData(nCoreAlg, nCoreMode, nCorePadding, pKey.get(), bsIV.data(),
                                             bsIV.length(), bsInput.data(), bsInput.length(),
                                             bsOut.buffer(), &nOutLen);
  if (rc) {
    bsOut.zeroize();
    bsMsg.format("[%s] nAlgID = %d, nEncMode = %d, nPaddintType = %d%s",
                 bEncrypt ? "ECSP_EncryptData" : "ECSP_DecryptData", nCoreAlg, nCoreMode, nCorePadding,
                 getECSPErrorText(rc));
    return QS_FAIL(pszMethod, bEncrypt ? "ECSP_EncryptData" : "ECSP_DecryptData", rc, bsMsg.c_str());
  }
  if (nOutLen != bsOut.length()) {
    // Padding took room: keep the exact bytes and wipe the larger block.
    ByteString bsExact(bsOut.data(), nOutLen);
    bsOut.zeroize();
    if (bsExact.status() != BS_OK) return QS_FAIL(pszMethod, "malloc", QS_ERR_MEMORY, "Momory allocation is failed.");
    bsOut = std::move(bsExact);
  }
  bsOutput = std::move(bsOut);
  return 0;
}
