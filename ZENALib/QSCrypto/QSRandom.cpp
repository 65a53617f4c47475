#include "ZENALib/QSCrypto/QSRandom.h"

#include <utility>

#include "ZENALib/QSCrypto/ECSP.h"

int QSRandom::GenerateRandom(int nAlgID, int nLength, ByteString& bsRandom) {
  int nCoreAlg;
  if (int rc = QS_ADMIT("GenerateRandom", nAlgID, &nCoreAlg)) return rc;
  ByteString bsOut;
  if (nLength > 0 && bsOut.resize(nLength) != BS_OK) {
    return QS_FAIL("GenerateRandom", "ucRandom", QS_ERR_MEMORY, "The ucRandom's memory allocation is failed.");
  }
  // A negative length reaches the core, which refuses it.
  if (int rc = ECSP_GenerateRandom(nCoreAlg, bsOut.buffer(), nLength)) {
    return QS_CORE_FAIL("GenerateRandom", "ECSP_GenerateRandom", rc);
  }
  bsRandom = std::move(bsOut);
  return 0;
}
