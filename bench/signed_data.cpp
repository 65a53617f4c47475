// A CMS SignedData of 1 KiB (RSA-2048, SHA-256, signed attributes, content
// and certificate embedded), made once by OpenSSL's CMS_sign: verified by
// PSignedDataProcess beside d2i plus CMS_verify of the same bytes; and made
// by PSignedData beside CMS_sign plus i2d. The same signer streams 4 MiB
// (BER: indefinite lengths, the content in 4 KiB segments) for a second
// verification pair.
#include <benchmark/benchmark.h>
#include <openssl/cms.h>
#include <openssl/evp.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>

#include "ZENALib/QSProcess/PSignedData.h"
#include "ZENALib/QSProcess/PSignedDataProcess.h"

namespace {

struct Material {
  EVP_PKEY* key = nullptr;
  X509* cert = nullptr;
  ByteString certDer, keyDer, content, signedData, streamed;
};

// The encoding an i2d function writes to a buffer it allocates.
template <typename T>
ByteString Der(int (*i2d)(const T*, unsigned char**), const T* object) {
  unsigned char* p = nullptr;
  const int n = i2d(object, &p);
  ByteString out(p, n > 0 ? n : 0);
  OPENSSL_free(p);
  return out;
}

const Material& Get() {
  static const Material m = [] {
    Material r;
    r.key = EVP_RSA_gen(2048);
    r.cert = X509_new();
    X509_set_version(r.cert, 2);
    ASN1_INTEGER_set(X509_get_serialNumber(r.cert), 7);
    X509_NAME* name = X509_get_subject_name(r.cert);
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("bench"), -1, -1, 0);
    X509_set_issuer_name(r.cert, name);
    X509_gmtime_adj(X509_getm_notBefore(r.cert), 0);
    X509_gmtime_adj(X509_getm_notAfter(r.cert), 86400);
    X509_set_pubkey(r.cert, r.key);
    X509_sign(r.cert, r.key, EVP_sha256());
    r.certDer = Der(i2d_X509, static_cast<const X509*>(r.cert));
    PKCS8_PRIV_KEY_INFO* p8 = EVP_PKEY2PKCS8(r.key);
    r.keyDer = Der(i2d_PKCS8_PRIV_KEY_INFO, static_cast<const PKCS8_PRIV_KEY_INFO*>(p8));
    PKCS8_PRIV_KEY_INFO_free(p8);
    std::string text(1024, 'x');
    r.content = ByteString(text.data(), static_cast<int>(text.size()));
    BIO* in = BIO_new_mem_buf(text.data(), static_cast<int>(text.size()));
    CMS_ContentInfo* cms = CMS_sign(r.cert, r.key, nullptr, in, CMS_BINARY | CMS_NOSMIMECAP);
    r.signedData = Der(i2d_CMS_ContentInfo, static_cast<const CMS_ContentInfo*>(cms));
    CMS_ContentInfo_free(cms);
    BIO_free(in);
    const std::string big(4 << 20, 's');
    in = BIO_new_mem_buf(big.data(), static_cast<int>(big.size()));
    BIO* out = BIO_new(BIO_s_mem());
    const int flags = CMS_BINARY | CMS_NOSMIMECAP | CMS_STREAM;
    cms = CMS_sign(r.cert, r.key, nullptr, in, flags);
    if (cms && i2d_CMS_bio_stream(out, cms, in, flags) == 1) {
      char* p = nullptr;
      const long n = BIO_get_mem_data(out, &p);
      r.streamed = ByteString(p, static_cast<int>(n));
    }
    CMS_ContentInfo_free(cms);
    BIO_free(out);
    BIO_free(in);
    return r;
  }();
  return m;
}

// Which of the material's SignedData a verification row takes.
using Which = ByteString Material::*;

void Verify_ours(benchmark::State& state, Which which) {
  const ByteString& der = Get().*which;
  for (auto _ : state) {
    PSignedDataProcess p;
    if (p.parseSignedData(der)) state.SkipWithError("parseSignedData failed");
  }
}

void Verify_openssl(benchmark::State& state, Which which) {
  const ByteString& der = Get().*which;
  for (auto _ : state) {
    const unsigned char* p = der.data();
    CMS_ContentInfo* cms = d2i_CMS_ContentInfo(nullptr, &p, der.length());
    if (!cms || CMS_verify(cms, nullptr, nullptr, nullptr, nullptr, CMS_NO_SIGNER_CERT_VERIFY | CMS_BINARY) != 1) {
      state.SkipWithError("CMS_verify failed");
    }
    CMS_ContentInfo_free(cms);
  }
}

void SignedDataSign_ours(benchmark::State& state) {
  const Material& m = Get();
  for (auto _ : state) {
    PSignedData sd;
    ByteString der;
    if (sd.setTobeSignedData(m.content) || sd.addSignerInfo(m.certDer, m.keyDer, 1012) || sd.makeSignedData(der)) {
      state.SkipWithError("PSignedData failed");
    }
    benchmark::DoNotOptimize(der.length());
  }
}

void SignedDataSign_openssl(benchmark::State& state) {
  const Material& m = Get();
  for (auto _ : state) {
    BIO* in = BIO_new_mem_buf(m.content.data(), m.content.length());
    CMS_ContentInfo* cms = CMS_sign(m.cert, m.key, nullptr, in, CMS_BINARY | CMS_NOSMIMECAP);
    unsigned char* p = nullptr;
    const int n = cms ? i2d_CMS_ContentInfo(cms, &p) : 0;
    if (n <= 0) state.SkipWithError("CMS_sign failed");
    OPENSSL_free(p);
    CMS_ContentInfo_free(cms);
    BIO_free(in);
  }
}

}  // namespace

BENCHMARK_CAPTURE(Verify_ours, 1k, &Material::signedData)->Name("signed_data_verify/ours");
BENCHMARK_CAPTURE(Verify_openssl, 1k, &Material::signedData)->Name("signed_data_verify/openssl");
BENCHMARK_CAPTURE(Verify_ours, streamed, &Material::streamed)->Name("signed_data_verify_streamed_4MiB/ours");
BENCHMARK_CAPTURE(Verify_openssl, streamed, &Material::streamed)->Name("signed_data_verify_streamed_4MiB/openssl");
BENCHMARK(SignedDataSign_ours)->Name("signed_data_sign/ours");
BENCHMARK(SignedDataSign_openssl)->Name("signed_data_sign/openssl");
