// KCDSA key reader and verifier on hostile keys and signatures: the first
// two bytes (little-endian) give the key's length, the rest is the signature.
#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "ZENALib/QSCrypto/ECSP.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Bounded so that one modular exponentiation stays quick.
  if (size < 3 || size > 2048) return 0;
  std::size_t keyLen = data[0] | (static_cast<std::size_t>(data[1]) << 8);
  if (keyLen > size - 2) keyLen = size - 2;
  const unsigned char* key = data + 2;
  const unsigned char* sig = key + keyLen;
  const int sigLen = static_cast<int>(size - 2 - keyLen);
  static const unsigned char kMessage[] = {'a', 'b', 'c'};
  for (int alg : {ecsp::kKCDSA_HAS160_1024, ecsp::kKCDSA_SHA1_2048})
    ECSP_VerifyData(alg, key, static_cast<int>(keyLen), kMessage, sizeof kMessage, sig, sigLen);
  return 0;
}
