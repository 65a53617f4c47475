// WTLS certificates of arbitrary bytes: parsed with every length checked;
// what parses gives its key as a SubjectPublicKeyInfo or says why not.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "ZENALib/QSProcess/WCertUtil.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  WCertUtil w;
  if (w.parseWTLSCertificate(ByteString(data, static_cast<int>(size))) != 0) {
    if (w.getErrorMessage().length() == 0 || w.m_bsIssuer.length() != 0) std::abort();
    return 0;
  }
  if (w.m_bsToBeSigned.length() > static_cast<int>(size)) std::abort();
  RSubjectPublicKeyInfo spki;
  if (w.getPublicKeyInfo(&spki) != 0 && w.getErrorMessage().length() == 0) std::abort();
  return 0;
}
