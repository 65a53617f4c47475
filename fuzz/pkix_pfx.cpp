// PKCS #12 files of arbitrary bytes: the PFX, and inside it the
// AuthenticatedSafe, each SafeContents, each bag and the bag's value. Every
// layer that decodes must encode, decode again and encode to the same bytes.
#include <cstddef>
#include <cstdint>

#include "PkixStable.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAuthenticatedSafe.h"
#include "ZENALib/ASN1Pkix/RCertBag.h"
#include "ZENALib/ASN1Pkix/REncryptedPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RPFX.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RSafeContents.h"

namespace {

// The octets of a data ContentInfo (empty for anything else).
ByteString DataOctets(RContentInfo& ci) {
  ASN1OctetString os;
  if (!ci.hasContent() || os.fromASN1Object(ci.getContent().getElement()) != 0) return ByteString();
  return os.getValue();
}

void Bags(const ByteString& der, int depth) {
  RSafeContents safe;
  if (depth > 4 || !PkixStable(der, safe)) return;
  for (int i = 0; i < safe.getCount(); ++i) {
    const ByteString& value = safe.getAt(i)->getBagValue().getElement();
    RPrivateKeyInfo key;
    PkixStable(value, key);
    REncryptedPrivateKeyInfo shrouded;
    PkixStable(value, shrouded);
    RCertBag cert;
    PkixStable(value, cert);
    Bags(value, depth + 1);  // safeContentsBag
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  const ByteString der(data, static_cast<int>(size));

  RPFX pfx;
  if (!PkixStable(der, pfx)) return 0;
  RAuthenticatedSafe authSafe;
  if (!PkixStable(DataOctets(pfx.getAuthSafe()), authSafe)) return 0;
  for (int i = 0; i < authSafe.getCount(); ++i) Bags(DataOctets(*authSafe.getAt(i)), 0);
  return 0;
}
