// CRLs of arbitrary bytes: whatever RCertificateList decodes must encode,
// decode again and encode to the same bytes; the same holds for the CRL and
// entry extension values under every X.509 extension class, and a decoded
// revoked list encodes alike whether its entries were built or not.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "X509Extensions.h"
#include "ZENALib/ASN1Pkix/RCertificateList.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  const ByteString der(data, static_cast<int>(size));
  RCertificateList crl;
  if (!PkixStable(der, crl)) return 0;
  // A revoked list kept as received encodes as the same list built entry by entry.
  const ByteString kept = crl.toASN1Object();
  RCertificateList built;
  if (built.fromASN1Object(der) != 0) std::abort();
  built.getTbsCertList().getRevokedCertificates().items();
  if (built.toASN1Object() != kept) std::abort();
  const RTBSCertList& tbs = crl.getTbsCertList();
  if (tbs.hasCrlExtensions()) X509Extensions(tbs.getCrlExtensions());
  if (tbs.hasRevokedCertificates())
    for (const RRevokedCertificate& e : tbs.getRevokedCertificates().items())
      if (e.hasCrlEntryExtensions()) X509Extensions(e.getCrlEntryExtensions());
  return 0;
}
