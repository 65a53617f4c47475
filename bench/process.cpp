// Checking a certificate's signature: PPublicKey::verifySignatureWithCert
// (the key read from the certificate bytes on every call) beside OpenSSL's
// X509_verify on the parsed certificate, same RSA-2048 self-signed
// certificate (tests/data/pkix/x509/certs/root-rsa2048.der, SHA-256).
#include <benchmark/benchmark.h>
#include <openssl/x509.h>

#include <fstream>
#include <sstream>
#include <string>

#include "bench/BenchData.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSProcess/PPublicKey.h"

namespace {

const ByteString& RootCertificate() {
  static const ByteString der = ReadSourceFile("/tests/data/pkix/x509/certs/root-rsa2048.der");
  return der;
}

void VerifyOurs(benchmark::State& st) {
  const ByteString& der = RootCertificate();
  RCertificate cert;
  if (der.length() == 0 || cert.fromASN1Object(der) != 0) return st.SkipWithError("certificate not found");
  const ByteString tbs = cert.getRawTBSCertificate();
  const ByteString sig = cert.getSignature().getBitString(nullptr);
  PPublicKey pk;
  for (auto _ : st) {
    if (pk.verifySignatureWithCert(der, QSAlgorithm::SHA256(), false, tbs, sig) != 0) {
      return st.SkipWithError("verification failed");
    }
  }
  st.SetItemsProcessed(st.iterations());
}

void VerifyAlgIDOurs(benchmark::State& st) {
  const ByteString& der = RootCertificate();
  PPublicKey pk;
  ByteString spki;
  if (pk.getPublicKeyInfoFromCert(der, PPublicKey::CERT_KIND_X509, spki) != 0) {
    return st.SkipWithError("certificate not found");
  }
  for (auto _ : st) {
    if (pk.verifyCertificateSignature(der, spki) != 0) return st.SkipWithError("verification failed");
  }
  st.SetItemsProcessed(st.iterations());
}

void VerifyOpenssl(benchmark::State& st) {
  const ByteString& der = RootCertificate();
  const unsigned char* p = der.data();
  X509* x = d2i_X509(nullptr, &p, der.length());
  if (!x) return st.SkipWithError("d2i_X509 failed");
  EVP_PKEY* key = X509_get0_pubkey(x);
  for (auto _ : st) {
    if (X509_verify(x, key) != 1) {
      X509_free(x);
      return st.SkipWithError("X509_verify failed");
    }
  }
  X509_free(x);
  st.SetItemsProcessed(st.iterations());
}

}  // namespace

BENCHMARK(VerifyOurs)->Name("cert_signature_rsa2048/ours");
BENCHMARK(VerifyOpenssl)->Name("cert_signature_rsa2048/openssl");
BENCHMARK(VerifyAlgIDOurs)->Name("cert_signature_rsa2048_by_algid/ours");
BENCHMARK(VerifyOpenssl)->Name("cert_signature_rsa2048_by_algid/openssl");
