// Decoding a typical certificate into RCertificate beside OpenSSL's d2i_X509
// of the same bytes.
#include <benchmark/benchmark.h>
#include <openssl/x509.h>

#include <fstream>
#include <sstream>
#include <string>

#include "bench/BenchData.h"
#include "ZENALib/ASN1Pkix/RCertificate.h"

namespace {

// A real Korean PKI user certificate (RSA-2048, policies with BMPString notices).
const ByteString& Certificate() {
  static const ByteString der = ReadSourceFile("/tests/data/pkix/cms/korean/test_KTNET_signCert.der");
  return der;
}

void DecodeOurs(benchmark::State& st) {
  const ByteString& der = Certificate();
  if (der.length() == 0) return st.SkipWithError("certificate not found");
  for (auto _ : st) {
    RCertificate cert;
    if (cert.fromASN1Object(der) != 0) return st.SkipWithError("decode failed");
    benchmark::DoNotOptimize(cert.getTbsCertificate().getSerialNumber().getValue().data());
  }
  st.SetBytesProcessed(st.iterations() * der.length());
}

void DecodeOpenssl(benchmark::State& st) {
  const ByteString& der = Certificate();
  if (der.length() == 0) return st.SkipWithError("certificate not found");
  for (auto _ : st) {
    const unsigned char* p = der.data();
    X509* x = d2i_X509(nullptr, &p, der.length());
    if (!x) return st.SkipWithError("d2i_X509 failed");
    benchmark::DoNotOptimize(X509_get0_serialNumber(x));
    X509_free(x);
  }
  st.SetBytesProcessed(st.iterations() * der.length());
}

void EncodeOurs(benchmark::State& st) {
  RCertificate cert;
  if (cert.fromASN1Object(Certificate()) != 0) return st.SkipWithError("decode failed");
  for (auto _ : st) benchmark::DoNotOptimize(cert.toASN1Object().data());
  st.SetBytesProcessed(st.iterations() * Certificate().length());
}

void EncodeOpenssl(benchmark::State& st) {
  const unsigned char* p = Certificate().data();
  X509* x = d2i_X509(nullptr, &p, Certificate().length());
  if (!x) return st.SkipWithError("d2i_X509 failed");
  for (auto _ : st) {
    // Re-encoding the TBS part from the parsed structure (i2d_X509 would hand
    // back the cached original bytes).
    unsigned char* out = nullptr;
    const int n = i2d_re_X509_tbs(x, &out);
    benchmark::DoNotOptimize(out);
    OPENSSL_free(out);
    benchmark::DoNotOptimize(n);
  }
  X509_free(x);
  st.SetBytesProcessed(st.iterations() * Certificate().length());
}

}  // namespace

BENCHMARK(DecodeOurs)->Name("certificate_decode/ours");
BENCHMARK(DecodeOpenssl)->Name("certificate_decode/openssl");
BENCHMARK(EncodeOurs)->Name("certificate_encode/ours");
BENCHMARK(EncodeOpenssl)->Name("certificate_encode/openssl");
