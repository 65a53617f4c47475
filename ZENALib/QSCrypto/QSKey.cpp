#include "ZENALib/QSCrypto/QSKey.h"

#include "ZENALib/QSCrypto/ECSP.h"

int QSKey::GenerateSharedKey(int nAlgID, const ByteString& bsPrivateKey, const ByteString& bsPeerPublicKey,
                             ByteString& bsSharedKey) {
  int nCoreAlg;
  if (int rc = QS_ADMIT("GenerateSharedKey", nAlgID, &nCoreAlg)) return rc;
  const int rc = ECSP_GenerateSharedKey(nCoreAlg, bsPrivateKey.data(), bsPrivateKey.length(), bsPeerPublicKey.data(),
                                        bsPeerPublicKey.length(), &bsSharedKey);
  return rc ? QS_CORE_FAIL("GenerateSharedKey", "ECSP_GenerateSharedKey", rc) : 0;
}

int QSKey::GenerateKeyPair(int nAlgID, const ByteString& bsDomain, ByteString& bsPrivateKey, ByteString& bsPublicKey) {
  int nCoreAlg;
  if (int rc = QS_ADMIT("GenerateKeyPair", nAlgID, &nCoreAlg)) return rc;
  const int rc = ECSP_GenerateKeyPair(nCoreAlg, bsDomain, &bsPrivateKey, &bsPublicKey);
  return rc ? QS_CORE_FAIL("GenerateKeyPair", "ECSP_GenerateKeyPair", rc) : 0;
}
