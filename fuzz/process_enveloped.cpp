// PEnvelopedDataProcess::parseEnvelopedData on arbitrary bytes, as the
// recipient of EnvelopedIdentity.h (RSA key, certificate and a Triple-DES
// KEK), then getContent. A decoded EnvelopedData must also be a fixed point
// of encode/decode; an opened envelope must give the same content twice.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "EnvelopedIdentity.h"
#include "PkixStable.h"
#include "ZENALib/QSProcess/PEnvelopedDataProcess.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  static const ByteString key(fuzzid::kKey, static_cast<int>(sizeof fuzzid::kKey));
  static const ByteString cert(fuzzid::kCert, static_cast<int>(sizeof fuzzid::kCert));
  static const ByteString kek = ByteString(fuzzid::kKekHex).fromHexString();
  const ByteString der(data, static_cast<int>(size));

  PEnvelopedDataProcess proc;
  if (proc.setRecipientIdentifier(cert) != 0) std::abort();
  proc.setKeyEncryptionKey(kek, fuzzid::kKekId);
  if (proc.decodeEnvelopedData(der) == 0) {
    REnvelopedData copy = proc.getEnvelopedData();
    const ByteString once = copy.toASN1Object();
    REnvelopedData again;
    if (copy.getErrorCode() == 0) PkixStable(once, again);
  }
  if (proc.parseEnvelopedData(der, key) != 0) {
    if (proc.getErrorCode() == 0 || proc.getErrorMessage().length() == 0) std::abort();
    return 0;
  }
  ByteString first, second;
  const int rc = proc.getContent(first);
  if (proc.getContent(second) != rc || (rc == 0 && first != second)) std::abort();
  return 0;
}
