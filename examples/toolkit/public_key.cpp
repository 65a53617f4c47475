// PPublicKey: check a SHA-256 RSA signature (PKCS #1 v1.5) with the key of a
// certificate, as made by `openssl dgst -sha256 -sign KEY -out SIG DATA`.
//   public_key CERT.der DATA SIG
#include <cstdio>

#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSProcess/PPublicKey.h"
#include "examples/toolkit/example_io.h"

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const ByteString cert = example::ReadFile(argv[1]);
  PPublicKey pk;

  ByteString spki;
  if (pk.getPublicKeyInfoFromCert(cert, PPublicKey::CERT_KIND_X509, spki) != 0) {
    std::fprintf(stderr, "%s\n", pk.getErrorMessage().c_str());
    return 1;
  }
  std::printf("SubjectPublicKeyInfo: %d bytes\n", spki.length());

  const int rc = pk.verifySignature(spki, QSAlgorithm::SHA256(), false, example::ReadFile(argv[2]),
                                    example::ReadFile(argv[3]));
  std::printf("signature: %s\n", rc == 0 ? "good" : "bad");
  return rc == 0 ? 0 : 1;
}
