// PAlgorithmUtil: translate between the library's algorithm codes and OIDs.
//   algorithm
#include <cstdio>

#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSProcess/PAlgorithmUtil.h"

int main() {
  // Hashes: code to OID text and back.
  const int hashes[] = {QSAlgorithm::SHA1(), QSAlgorithm::SHA256(), QSAlgorithm::HAS160()};
  for (int code : hashes) {
    const char* oid = PAlgorithmUtil::hashOID(code);
    std::printf("hash %d: %s -> %d\n", code, oid, PAlgorithmUtil::hashCode(oid));
  }

  // Ciphers: SEED in CBC mode (4) to its OID, and the OID back to code and mode.
  PAlgorithmUtil util;
  ByteString oid;
  int alg = 0, mode = 0;
  if (util.code2oid(QSAlgorithm::SEED(), oid, 4) != 0 || util.oid2code(oid, 0, &alg, &mode) != 0) {
    std::fprintf(stderr, "%s\n", util.getErrorMessage().c_str());
    return 1;
  }
  std::printf("SEED-CBC: %s -> %d, mode %d\n", oid.c_str(), alg, mode);
  return 0;
}
