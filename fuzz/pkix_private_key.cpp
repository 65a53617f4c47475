// Private keys of arbitrary bytes: PrivateKeyInfo with the key and
// parameters inside it, EncryptedPrivateKeyInfo with its PBES2/PBKDF2
// parameters, and the traditional RSA and EC key files. Whatever decodes
// must encode, decode again and encode to the same bytes.
#include <cstddef>
#include <cstdint>

#include "PkixStable.h"
#include "ZENALib/ASN1Pkix/RECPrivateKey.h"
#include "ZENALib/ASN1Pkix/REncryptedPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RPBES2_params.h"
#include "ZENALib/ASN1Pkix/RPBKDF2_params.h"
#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"
#include "ZENALib/ASN1Pkix/RRSAPrivateKey.h"

namespace {

void Parameters(RAlgorithmIdentifier& alg) {
  if (!alg.hasParameters()) return;
  const ByteString& p = alg.getParameters().getElement();
  RecpkParameters ec;
  PkixStable(p, ec);
  RPBES2_params pbes2;
  if (PkixStable(p, pbes2)) {
    RPBKDF2_params kdf;
    RAlgorithmIdentifier& kdfAlg = pbes2.getKeyDerivationFunc();
    if (kdfAlg.hasParameters()) PkixStable(kdfAlg.getParameters().getElement(), kdf);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 16)) return 0;
  const ByteString der(data, static_cast<int>(size));

  RPrivateKeyInfo info;
  if (PkixStable(der, info)) {
    Parameters(info.getPrivateKeyAlgorithm());
    RRSAPrivateKey rsa;
    PkixStable(info.getPrivateKey().getValue(), rsa);
    RECPrivateKey ec;
    PkixStable(info.getPrivateKey().getValue(), ec);
  }
  REncryptedPrivateKeyInfo encrypted;
  if (PkixStable(der, encrypted)) Parameters(encrypted.getEncryptionAlgorithm());
  RRSAPrivateKey rsa;
  PkixStable(der, rsa);
  RECPrivateKey ec;
  PkixStable(der, ec);
  return 0;
}
