// Crypto services beside raw OpenSSL on the same data in the same run:
// digests and ciphers through QSHash/QSEncrypt against EVP, HAS-160 against
// OpenSSL's SHA-1 and rhash, and signature rates.
#include <benchmark/benchmark.h>
#include <openssl/evp.h>
#include <openssl/provider.h>
#include <openssl/x509.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/QSAlgorithm.h"
#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "ZENALib/QSCrypto/QSHash.h"
#include "ZENALib/QSCrypto/QSSign.h"

namespace {

ByteString Data(int n) {
  ByteString bs;
  bs.resize(n);
  unsigned x = 2463534242u;
  for (int i = 0; i < n; ++i) bs.buffer()[i] = static_cast<unsigned char>((x = x * 1103515245u + 12345u) >> 16);
  return bs;
}

// A library context with the legacy provider for the raw side, like ours.
OSSL_LIB_CTX* RawCtx() {
  static OSSL_LIB_CTX* ctx = [] {
    OSSL_LIB_CTX* c = OSSL_LIB_CTX_new();
    OSSL_PROVIDER_load(c, "default");
    OSSL_PROVIDER_load(c, "legacy");
    return c;
  }();
  return ctx;
}

const int kSizes[] = {64, 1024, 8192, 65536};

// ---- digests --------------------------------------------------------------

void HashOurs(benchmark::State& st, int alg) {
  const ByteString in = Data(static_cast<int>(st.range(0)));
  ByteString md;
  for (auto _ : st) {
    QSHash h;
    h.DigestData(alg, in, md);
    benchmark::DoNotOptimize(md.data());
  }
  st.SetBytesProcessed(st.iterations() * in.length());
}

void HashOpenssl(benchmark::State& st, const char* name) {
  const ByteString in = Data(static_cast<int>(st.range(0)));
  EVP_MD* md = EVP_MD_fetch(RawCtx(), name, nullptr);
  unsigned char out[EVP_MAX_MD_SIZE];
  for (auto _ : st) {
    EVP_Digest(in.data(), static_cast<std::size_t>(in.length()), out, nullptr, md, nullptr);
    benchmark::DoNotOptimize(out);
  }
  EVP_MD_free(md);
  st.SetBytesProcessed(st.iterations() * in.length());
}

// HAS-160 through the staged service over a file read in 64 KiB pieces,
// against rhash hashing the same file.
// The file is removed by its owner's destructor, which runs while the path
// is still alive (an exit handler registered during the construction would
// run only after the path is destroyed).
class TempFile {
 public:
  explicit TempFile(std::string path) : m_path(std::move(path)) {}
  ~TempFile() { std::remove(m_path.c_str()); }
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;
  const char* path() const { return m_path.c_str(); }

 private:
  std::string m_path;
};

const char* Has160File() {
  static const TempFile file = [] {
    std::string p = "/tmp/qva_bench_has160_" + std::to_string(getpid()) + ".bin";
    const ByteString chunk = Data(1 << 20);
    FILE* f = std::fopen(p.c_str(), "wb");
    for (int i = 0; f && i < 64; ++i) std::fwrite(chunk.data(), 1, static_cast<std::size_t>(chunk.length()), f);
    if (f) std::fclose(f);
    return TempFile(std::move(p));
  }();
  return file.path();
}

void Has160FileOurs(benchmark::State& st) {
  std::vector<unsigned char> buf(1 << 16);
  long long total = 0;
  for (auto _ : st) {
    FILE* f = std::fopen(Has160File(), "rb");
    QSHash h;
    h.DigestData_Init(QSAlgorithm::HAS160());
    std::size_t n;
    while (f && (n = std::fread(buf.data(), 1, buf.size(), f)) > 0) {
      h.DigestData_Update(buf.data(), static_cast<int>(n));
      total += static_cast<long long>(n);
    }
    if (f) std::fclose(f);
    ByteString md;
    h.DigestData_Final(md);
    benchmark::DoNotOptimize(md.data());
  }
  st.SetBytesProcessed(total);
}

// User and system time of the children waited for so far.
double ChildCpuSeconds() {
  rusage ru{};
  getrusage(RUSAGE_CHILDREN, &ru);
  return static_cast<double>(ru.ru_utime.tv_sec + ru.ru_stime.tv_sec) +
         static_cast<double>(ru.ru_utime.tv_usec + ru.ru_stime.tv_usec) / 1e6;
}

void Has160FileRhash(benchmark::State& st) {
  const std::string cmd = std::string("rhash --has160 ") + Has160File() + " > /dev/null";
  for (auto _ : st) {
    // rhash runs in a child process: its CPU time is this side's figure.
    const double before = ChildCpuSeconds();
    if (std::system(cmd.c_str()) != 0) st.SkipWithError("rhash failed");
    st.SetIterationTime(ChildCpuSeconds() - before);
  }
  st.SetBytesProcessed(st.iterations() * (64LL << 20));
}

// ---- ciphers --------------------------------------------------------------

struct CipherCase {
  const char* name;   // case name and OpenSSL cipher name
  int alg;
  int mode;           // library mode
  int keyLen;
  int ivLen;
};

const CipherCase kCiphers[] = {
    {"DES-CBC", 3000, 4, 8, 8},         {"DES-EDE3-CBC", 3011, 4, 24, 8}, {"SEED-CBC", 3020, 4, 16, 16},
    {"SEED-ECB", 3020, 3, 16, 0},       {"SEED-OFB", 3020, 6, 16, 16},    {"RC2-CBC", 3052, 4, 16, 8},
};

void EncryptOurs(benchmark::State& st, CipherCase c) {
  const ByteString in = Data(static_cast<int>(st.range(0)));
  const ByteString key = Data(c.keyLen), iv = Data(c.ivLen);
  ByteString out;
  QSEncrypt e;
  for (auto _ : st) {
    e.EncryptData(c.alg, c.mode, 2, key, iv, in, out);
    benchmark::DoNotOptimize(out.data());
  }
  st.SetBytesProcessed(st.iterations() * in.length());
}

void EncryptOpenssl(benchmark::State& st, CipherCase c) {
  const ByteString in = Data(static_cast<int>(st.range(0)));
  const ByteString key = Data(c.keyLen), iv = Data(c.ivLen);
  EVP_CIPHER* cipher = EVP_CIPHER_fetch(RawCtx(), c.name, nullptr);
  for (auto _ : st) {
    // The same work per call as ours: a context, one output block, padding.
    std::vector<unsigned char> out(static_cast<std::size_t>(in.length() + 16));
    EVP_CIPHER_CTX* ctx = EVP_CIPHER_CTX_new();
    int n1 = 0, n2 = 0;
    EVP_EncryptInit_ex2(ctx, cipher, key.data(), c.ivLen ? iv.data() : nullptr, nullptr);
    EVP_EncryptUpdate(ctx, out.data(), &n1, in.data(), in.length());
    EVP_EncryptFinal_ex(ctx, out.data() + n1, &n2);
    EVP_CIPHER_CTX_free(ctx);
    benchmark::DoNotOptimize(out.data());
  }
  EVP_CIPHER_free(cipher);
  st.SetBytesProcessed(st.iterations() * in.length());
}

// ---- signatures -----------------------------------------------------------

struct KeyPair {
  ByteString priv, pub;
};

// Keys by the core number that makes them, made once.
const KeyPair& KeyFor(int genAlg) {
  static std::map<int, KeyPair> keys;
  auto it = keys.find(genAlg);
  if (it == keys.end()) {
    KeyPair k;
    ECSP_GenerateKeyPair(genAlg, ByteString(), &k.priv, &k.pub);
    it = keys.emplace(genAlg, std::move(k)).first;
  }
  return it->second;
}

struct SignCase {
  const char* name;
  int alg;      // number for signing (core number when core is set)
  bool core;
  int genAlg;   // core number that makes the key
  const char* md;
};

const SignCase kSigns[] = {
    {"RSA-2048", 7012, false, ecsp::kRSA2048, "SHA1"},
    {"ECDSA-sect163k1", 7050, false, ecsp::kECDSA_SHA1_K163, "SHA1"},
    {"ECDSA-c2pnb163v1", 7051, false, ecsp::kECDSA_SHA1_C2PNB163V1, "SHA1"},
    {"ECDSA-secp160r1", ecsp::kECDSA_SHA1_P160, true, ecsp::kECDSA_SHA1_P160, "SHA1"},
    {"KCDSA-2048-SHA1", 7033, false, ecsp::kKCDSA_SHA1_2048, nullptr},
    {"KCDSA-2048-HAS160", 7042, false, ecsp::kKCDSA_SHA1_2048, nullptr},
};

void SignOurs(benchmark::State& st, SignCase c) {
  const KeyPair& k = KeyFor(c.genAlg);
  const ByteString msg = Data(1024);
  ByteString sig;
  QSSign s;
  for (auto _ : st) {
    if (c.core) ECSP_SignData(c.alg, k.priv.data(), k.priv.length(), msg.data(), msg.length(), &sig);
    else s.SignData(c.alg, k.priv, msg, sig);
    benchmark::DoNotOptimize(sig.data());
  }
  st.SetItemsProcessed(st.iterations());
}

void VerifyOurs(benchmark::State& st, SignCase c) {
  const KeyPair& k = KeyFor(c.genAlg);
  const ByteString msg = Data(1024);
  ByteString sig;
  QSSign s;
  if (c.core) ECSP_SignData(c.alg, k.priv.data(), k.priv.length(), msg.data(), msg.length(), &sig);
  else s.SignData(c.alg, k.priv, msg, sig);
  for (auto _ : st) {
    const int rc = c.core ? ECSP_VerifyData(c.alg, k.pub.data(), k.pub.length(), msg.data(), msg.length(),
                                            sig.data(), sig.length())
                          : s.VerifyData(c.alg, k.pub, msg, sig);
    if (rc) st.SkipWithError("verify failed");
  }
  st.SetItemsProcessed(st.iterations());
}

// OpenSSL with the same key parsed once; KCDSA has no OpenSSL counterpart,
// so it is set beside DSA with a 2048-bit p (the same kind of arithmetic).
EVP_PKEY* RawKey(const SignCase& c) {
  if (c.md) {
    const KeyPair& k = KeyFor(c.genAlg);
    const unsigned char* p = k.priv.data();
    return d2i_AutoPrivateKey_ex(nullptr, &p, k.priv.length(), RawCtx(), nullptr);
  }
  static EVP_PKEY* dsa = [] {
    EVP_PKEY_CTX* pc = EVP_PKEY_CTX_new_from_name(RawCtx(), "DSA", nullptr);
    EVP_PKEY* params = nullptr;
    EVP_PKEY_paramgen_init(pc);
    EVP_PKEY_CTX_set_dsa_paramgen_bits(pc, 2048);
    EVP_PKEY_generate(pc, &params);
    EVP_PKEY_CTX* kc = EVP_PKEY_CTX_new_from_pkey(RawCtx(), params, nullptr);
    EVP_PKEY* key = nullptr;
    EVP_PKEY_keygen_init(kc);
    EVP_PKEY_generate(kc, &key);
    EVP_PKEY_CTX_free(kc);
    EVP_PKEY_CTX_free(pc);
    EVP_PKEY_free(params);
    return key;
  }();
  EVP_PKEY_up_ref(dsa);
  return dsa;
}

void SignOpenssl(benchmark::State& st, SignCase c) {
  EVP_PKEY* key = RawKey(c);
  const ByteString msg = Data(1024);
  std::vector<unsigned char> sig(1024);
  for (auto _ : st) {
    EVP_MD_CTX* m = EVP_MD_CTX_new();
    std::size_t len = sig.size();
    EVP_DigestSignInit_ex(m, nullptr, "SHA1", RawCtx(), nullptr, key, nullptr);
    EVP_DigestSign(m, sig.data(), &len, msg.data(), static_cast<std::size_t>(msg.length()));
    EVP_MD_CTX_free(m);
    benchmark::DoNotOptimize(sig.data());
  }
  EVP_PKEY_free(key);
  st.SetItemsProcessed(st.iterations());
}

void VerifyOpenssl(benchmark::State& st, SignCase c) {
  EVP_PKEY* key = RawKey(c);
  const ByteString msg = Data(1024);
  std::vector<unsigned char> sig(1024);
  std::size_t len = sig.size();
  EVP_MD_CTX* m = EVP_MD_CTX_new();
  EVP_DigestSignInit_ex(m, nullptr, "SHA1", RawCtx(), nullptr, key, nullptr);
  EVP_DigestSign(m, sig.data(), &len, msg.data(), static_cast<std::size_t>(msg.length()));
  EVP_MD_CTX_free(m);
  for (auto _ : st) {
    EVP_MD_CTX* v = EVP_MD_CTX_new();
    EVP_DigestVerifyInit_ex(v, nullptr, "SHA1", RawCtx(), nullptr, key, nullptr);
    if (EVP_DigestVerify(v, sig.data(), len, msg.data(), static_cast<std::size_t>(msg.length())) != 1) {
      st.SkipWithError("verify failed");
    }
    EVP_MD_CTX_free(v);
  }
  EVP_PKEY_free(key);
  st.SetItemsProcessed(st.iterations());
}

// Registers "<name>/ours" and "<name>/openssl" over the buffer sizes.
template <class Ours, class Raw>
void RegisterSizedPair(const std::string& name, Ours ours, Raw raw) {
  auto* a = benchmark::RegisterBenchmark((name + "/ours").c_str(), ours);
  auto* b = benchmark::RegisterBenchmark((name + "/openssl").c_str(), raw);
  for (int n : kSizes) {
    a->Arg(n);
    b->Arg(n);
  }
}

int Register() {
  const struct {
    const char* name;
    int alg;
    const char* evp;
  } hashes[] = {{"MD5", 1002, "MD5"}, {"SHA1", 1011, "SHA1"}, {"SHA256", 1012, "SHA256"}};
  for (const auto& h : hashes) {
    const int alg = h.alg;
    const char* evp = h.evp;
    RegisterSizedPair(std::string("hash/") + h.name, [alg](benchmark::State& st) { HashOurs(st, alg); },
                      [evp](benchmark::State& st) { HashOpenssl(st, evp); });
  }
  // HAS-160 here beside SHA-1 in OpenSSL on the same buffer.
  RegisterSizedPair("has160_vs_sha1", [](benchmark::State& st) { HashOurs(st, 1020); },
                    [](benchmark::State& st) { HashOpenssl(st, "SHA1"); });
  benchmark::RegisterBenchmark("has160_file64M/ours", Has160FileOurs)->Iterations(5)->UseRealTime();
  benchmark::RegisterBenchmark("has160_file64M/rhash", Has160FileRhash)->Iterations(5)->UseManualTime();
  for (const CipherCase& c : kCiphers) {
    RegisterSizedPair(std::string("cipher/") + c.name, [c](benchmark::State& st) { EncryptOurs(st, c); },
                      [c](benchmark::State& st) { EncryptOpenssl(st, c); });
  }
  for (const SignCase& c : kSigns) {
    const std::string ref = c.md ? "/openssl" : "/openssl_dsa2048";
    benchmark::RegisterBenchmark((std::string("sign/") + c.name + "/ours").c_str(),
                                 [c](benchmark::State& st) { SignOurs(st, c); });
    benchmark::RegisterBenchmark((std::string("sign/") + c.name + ref).c_str(),
                                 [c](benchmark::State& st) { SignOpenssl(st, c); });
    benchmark::RegisterBenchmark((std::string("verify/") + c.name + "/ours").c_str(),
                                 [c](benchmark::State& st) { VerifyOurs(st, c); });
    benchmark::RegisterBenchmark((std::string("verify/") + c.name + ref).c_str(),
                                 [c](benchmark::State& st) { VerifyOpenssl(st, c); });
  }
  return 0;
}

const int kRegistered = Register();

}  // namespace
