// CMS objects of arbitrary bytes: the ContentInfo, then by its content type
// the SignedData (with the TSTInfo of a time-stamp token and every signer's
// ESS signingCertificate), the EnvelopedData or the EncryptedData. Every layer
// that decodes must encode, decode again and encode to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "PkixStable.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/REncryptedData.h"
#include "ZENALib/ASN1Pkix/REnvelopedData.h"
#include "ZENALib/ASN1Pkix/RSignedData.h"
#include "ZENALib/ASN1Pkix/RSigningCertificate.h"
#include "ZENALib/ASN1Pkix/RTSTInfo.h"

namespace {

bool Is(ASN1ObjectIdentifier oid, const char* text) { return oid.getOID() == ByteString(text); }

void Signed(const ByteString& der) {
  RSignedData sd;
  if (!PkixStable(der, sd)) return;
  RTSTInfo tst;
  if (sd.getEncapContentInfo().hasEContent()) PkixStable(sd.getEncapContentInfo().getEContent().getValue(), tst);
  for (const RSignerInfo& si : sd.getSignerInfos().items()) {
    if (!si.hasSignedAttrs()) continue;
    RAttributes raw;
    if (!si.getRawSignedAttrs().isEmpty() && raw.fromASN1Object(si.getRawSignedAttrs()) != 0) std::abort();
    for (const RAttribute& attr : si.getSignedAttrs().items()) {
      if (!Is(attr.getType(), "1 2 840 113549 1 9 16 2 12")) continue;
      for (const RAny& v : attr.getValues().items()) {
        RSigningCertificate sc;
        PkixStable(v.getElement(), sc);
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  RContentInfo ci;
  if (!PkixStable(ByteString(data, static_cast<int>(size)), ci) || !ci.hasContent()) return 0;
  const ByteString& content = ci.getContent().getElement();
  if (Is(ci.getContentType(), "1 2 840 113549 1 7 2")) {
    Signed(content);
  } else if (Is(ci.getContentType(), "1 2 840 113549 1 7 3")) {
    REnvelopedData ed;
    PkixStable(content, ed);
  } else if (Is(ci.getContentType(), "1 2 840 113549 1 7 6")) {
    REncryptedData ed;
    PkixStable(content, ed);
  }
  return 0;
}
