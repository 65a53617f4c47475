// Enveloping and opening 32 bytes for one RSA-2048 recipient (key
// transport, PKCS#1 v1.5, Triple-DES content): PEnvelopedData and
// PEnvelopedDataProcess beside OpenSSL's CMS_encrypt and CMS_decrypt on the
// same certificate and key (made once per run). Each side works from DER:
// ours writes and reads the DER ContentInfo, OpenSSL encodes with
// i2d_CMS_ContentInfo and decodes with d2i_CMS_ContentInfo. As OpenSSL
// keeps its parsed key and certificate from one call to the next, the
// opening side keeps one PEnvelopedDataProcess (certificate set once; the
// parsed private key is kept by the object between envelopes).
#include <benchmark/benchmark.h>
#include <openssl/cms.h>
#include <openssl/evp.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>

#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSProcess/PEnvelopedData.h"
#include "ZENALib/QSProcess/PEnvelopedDataProcess.h"
#include "bench/RsaIdentity.h"

namespace {

using Recipient = BenchRsaIdentity;

const Recipient& TheRecipient() {
  static const Recipient r = MakeBenchRsaIdentity(0x1234);
  return r;
}

const ByteString kContent("0123456789abcdef0123456789abcdef");  // 32 bytes

bool EnvelopeOurs(const Recipient& r, ByteString& der) {
  PEnvelopedData env;
  ByteString key, iv;
  return env.makeSymetricKey(QSAlgorithm::TripleDES(), key, iv) == 0 &&
         env.choiceRecipientType(penv::KEY_TRANS_RECIPIENT_INFO) == 0 &&
         env.choiceRecipientIdentifier(penv::ISSUERANDSERIALNUMBER) == 0 && env.addRecipientByCert(r.cert) == 0 &&
         env.makeEnvelopedData(kContent, der) == 0;
}

bool OpenOurs(const Recipient& r, const ByteString& der) {
  static PEnvelopedDataProcess proc;
  static const bool named = proc.setRecipientIdentifier(r.cert) == 0;
  ByteString content;
  return named && proc.parseEnvelopedData(der, r.key) == 0 && proc.getContent(content) == 0 && content == kContent;
}

bool EnvelopeOpenssl(const Recipient& r, ByteString& der) {
  STACK_OF(X509)* certs = sk_X509_new_null();
  sk_X509_push(certs, r.x509);
  BIO* in = BIO_new_mem_buf(kContent.data(), kContent.length());
  CMS_ContentInfo* cms = CMS_encrypt(certs, in, EVP_des_ede3_cbc(), CMS_BINARY);
  unsigned char* p = nullptr;
  const int n = cms ? i2d_CMS_ContentInfo(cms, &p) : -1;
  if (n > 0) der = ByteString(p, n);
  OPENSSL_free(p);
  CMS_ContentInfo_free(cms);
  BIO_free(in);
  sk_X509_free(certs);
  return n > 0;
}

bool OpenOpenssl(const Recipient& r, const ByteString& der) {
  const unsigned char* p = der.data();
  CMS_ContentInfo* cms = d2i_CMS_ContentInfo(nullptr, &p, der.length());
  BIO* out = BIO_new(BIO_s_mem());
  const bool ok = cms && CMS_decrypt(cms, r.pkey, r.x509, nullptr, out, CMS_BINARY) == 1 &&
                  BIO_ctrl_pending(out) == static_cast<std::size_t>(kContent.length());
  BIO_free(out);
  CMS_ContentInfo_free(cms);
  return ok;
}

template <bool (*Envelope)(const Recipient&, ByteString&), bool (*Open)(const Recipient&, const ByteString&)>
void EnvelopeAndOpen(benchmark::State& st) {
  const Recipient& r = TheRecipient();
  for (auto _ : st) {
    ByteString der;
    if (!Envelope(r, der) || !Open(r, der)) return st.SkipWithError("envelope or open failed");
  }
  st.SetItemsProcessed(st.iterations());
}

template <bool (*Envelope)(const Recipient&, ByteString&), bool (*Open)(const Recipient&, const ByteString&)>
void OpenOnly(benchmark::State& st) {
  const Recipient& r = TheRecipient();
  ByteString der;
  if (!Envelope(r, der)) return st.SkipWithError("envelope failed");
  for (auto _ : st) {
    if (!Open(r, der)) return st.SkipWithError("open failed");
  }
  st.SetItemsProcessed(st.iterations());
}

template <bool (*Envelope)(const Recipient&, ByteString&)>
void EnvelopeOnly(benchmark::State& st) {
  const Recipient& r = TheRecipient();
  for (auto _ : st) {
    ByteString der;
    if (!Envelope(r, der)) return st.SkipWithError("envelope failed");
  }
  st.SetItemsProcessed(st.iterations());
}

}  // namespace

BENCHMARK(EnvelopeAndOpen<EnvelopeOurs, OpenOurs>)->Name("envelope_open_rsa2048_32B/ours");
BENCHMARK(EnvelopeAndOpen<EnvelopeOpenssl, OpenOpenssl>)->Name("envelope_open_rsa2048_32B/openssl");
BENCHMARK(EnvelopeOnly<EnvelopeOurs>)->Name("envelope_rsa2048_32B/ours");
BENCHMARK(EnvelopeOnly<EnvelopeOpenssl>)->Name("envelope_rsa2048_32B/openssl");
BENCHMARK(OpenOnly<EnvelopeOurs, OpenOurs>)->Name("open_rsa2048_32B/ours");
BENCHMARK(OpenOnly<EnvelopeOpenssl, OpenOpenssl>)->Name("open_rsa2048_32B/openssl");
