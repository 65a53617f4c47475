// Certificates of arbitrary bytes: whatever RCertificate decodes must encode,
// decode again and encode to the same bytes; the same holds for every
// extension value under every X.509 extension class.
#include <cstddef>
#include <cstdint>

#include "X509Extensions.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  const ByteString der(data, static_cast<int>(size));
  RCertificate cert;
  if (PkixStable(der, cert) && cert.getTbsCertificate().hasExtensions())
    X509Extensions(cert.getTbsCertificate().getExtensions());
  return 0;
}
