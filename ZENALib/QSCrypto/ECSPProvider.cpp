// OpenSSL glue of the core: the library context with its providers, the
// digests and ciphers fetched once and the digest engine; the core lock is
// in platform/CoreLock_*.cpp.
#include <openssl/decoder.h>
#include <openssl/provider.h>
#include <openssl/x509.h>

#include <cstring>
#include <mutex>

#include "ZENALib/QSCrypto/ECSPInternal.h"
#include "base/SecureZero.h"

namespace ecsp_internal {

namespace {

struct CipherRow {
  int nAlgID;
  const char* names[4];  // ECB, CBC, CFB, OFB
  int nKeyLength;        // 0: variable (RC2)
  int nBlockLength;
  int nEffectiveBits;    // RC2 only
};

constexpr CipherRow kCiphers[] = {
    {ecsp::kDES, {"DES-ECB", "DES-CBC", "DES-CFB", "DES-OFB"}, 8, 8, 0},
    {ecsp::kDES2, {"DES-EDE-ECB", "DES-EDE-CBC", "DES-EDE-CFB", "DES-EDE-OFB"}, 16, 8, 0},
    {ecsp::kTripleDES, {"DES-EDE3-ECB", "DES-EDE3-CBC", "DES-EDE3-CFB", "DES-EDE3-OFB"}, 24, 8, 0},
    {ecsp::kSEED, {"SEED-ECB", "SEED-CBC", "SEED-CFB", "SEED-OFB"}, 16, 16, 0},
    {ecsp::kRC2_40, {"RC2-ECB", "RC2-CBC", "RC2-CFB", "RC2-OFB"}, 0, 8, 40},
    {ecsp::kRC2_64, {"RC2-ECB", "RC2-CBC", "RC2-CFB", "RC2-OFB"}, 0, 8, 64},
    {ecsp::kRC2_128, {"RC2-ECB", "RC2-CBC", "RC2-CFB", "RC2-OFB"}, 0, 8, 128},
    {ecsp::kRC2_192, {"RC2-ECB", "RC2-CBC", "RC2-CFB", "RC2-OFB"}, 0, 8, 192},
    {ecsp::kRC2_256, {"RC2-ECB", "RC2-CBC", "RC2-CFB", "RC2-OFB"}, 0, 8, 256},
};
constexpr int kCipherCount = sizeof(kCiphers) / sizeof(kCiphers[0]);

struct Core {
  OSSL_LIB_CTX* pLibCtx = nullptr;
  EVP_MD* mds[kDigestKinds] = {};
  EVP_CIPHER* ciphers[kCipherCount][4] = {};
};

Core g_core;
std::once_flag g_coreOnce;

void LoadCore() {
  OSSL_LIB_CTX* ctx = OSSL_LIB_CTX_new();
  if (!ctx) return;
  // SEED, RC2 and single DES live only in the legacy provider; the default
  // provider must be loaded beside it, or nothing else would be found.
  if (!OSSL_PROVIDER_load(ctx, "default") || !OSSL_PROVIDER_load(ctx, "legacy")) {
    OSSL_LIB_CTX_free(ctx);
    return;
  }
  static const char* const kMdNames[kDigestKinds] = {"MD5", "SHA1", "SHA256", nullptr, "SHA224",
                                                                "SHA384", "SHA512"};
  for (int i = 0; i < kDigestKinds; ++i) {
    if (kMdNames[i]) g_core.mds[i] = EVP_MD_fetch(ctx, kMdNames[i], nullptr);
  }
  for (int i = 0; i < kCipherCount; ++i) {
    for (int m = 0; m < 4; ++m) g_core.ciphers[i][m] = EVP_CIPHER_fetch(ctx, kCiphers[i].names[m], nullptr);
  }
  g_core.pLibCtx = ctx;
}

const Core& TheCore() {
  std::call_once(g_coreOnce, LoadCore);
  return g_core;
}

const CipherRow* FindCipher(int nAlgID) {
  for (const CipherRow& r : kCiphers) {
    if (r.nAlgID == nAlgID) return &r;
  }
  return nullptr;
}

constexpr int kDigestLengths[kDigestKinds] = {16, 20, 32, 20, 28, 48, 64};

struct DigestSelection {
  int nAlgID;
  DigestKind kind;
};

// Which digest a core code starts. KCDSA with SHA-1 and ECDSA codes start
// their own digests inside their signature code, so they are not listed.
constexpr DigestSelection kDigestSelection[] = {
    {ecsp::kMD5, kDigestMD5},          {ecsp::kMD5RSA512, kDigestMD5},
    {ecsp::kMD5RSA1024, kDigestMD5},   {ecsp::kMD5RSA2048, kDigestMD5},
    {ecsp::kSHA1, kDigestSHA1},        {ecsp::kSHA1RSA512, kDigestSHA1},
    {ecsp::kSHA1RSA1024, kDigestSHA1}, {ecsp::kSHA1RSA2048, kDigestSHA1},
    {ecsp::kRSAOAEP1024, kDigestSHA1}, {ecsp::kRSAOAEP2048, kDigestSHA1},
    {ecsp::kSHA256, kDigestSHA256},    {ecsp::kSHA256RSA1024, kDigestSHA256},
    {ecsp::kSHA256RSA2048, kDigestSHA256}, {ecsp::kHAS160, kDigestHAS160},
    {ecsp::kKCDSA_HAS160_1024, kDigestHAS160}, {ecsp::kKCDSA_HAS160_2048, kDigestHAS160},
    {ecsp::kSHA224, kDigestSHA224},    {ecsp::kSHA384, kDigestSHA384},
    {ecsp::kSHA512, kDigestSHA512},
};

}  // namespace

OSSL_LIB_CTX* LibCtx() { return TheCore().pLibCtx; }

int DigestLength(DigestKind kind) { return kDigestLengths[kind]; }

const EVP_MD* Md(DigestKind kind) { return TheCore().mds[kind]; }

bool SelectDigest(int nAlgID, DigestKind* pKind) {
  for (const DigestSelection& s : kDigestSelection) {
    if (s.nAlgID == nAlgID) {
      *pKind = s.kind;
      return true;
    }
  }
  return false;
}

Digest::~Digest() {
  EVP_MD_CTX_free(m_pMd);
  SecureZero(&m_has, sizeof(m_has));
}

bool Digest::Init(DigestKind kind) {
  m_kind = kind;
  if (kind == kDigestHAS160) {
    HAS160_Init(&m_has);
    return true;
  }
  const EVP_MD* md = Md(kind);
  if (!md) return false;
  if (!m_pMd && !(m_pMd = EVP_MD_CTX_new())) return false;
  return EVP_DigestInit_ex2(m_pMd, md, nullptr) == 1;
}

bool Digest::Update(const unsigned char* p, std::size_t n) {
  if (m_kind == kDigestHAS160) {
    HAS160_Update(&m_has, p, n);
    return true;
  }
  return m_pMd && EVP_DigestUpdate(m_pMd, p, n) == 1;
}

bool Digest::Final(unsigned char* out) {
  if (m_kind == kDigestHAS160) {
    HAS160_Final(&m_has, out);
    return true;
  }
  return m_pMd && EVP_DigestFinal_ex(m_pMd, out, nullptr) == 1;
}

const EVP_CIPHER* Cipher(int nAlgID, int nMode) {
  const Core& core = TheCore();
  if (nMode < ECSP_MODE_ECB || nMode > ECSP_MODE_OFB) return nullptr;
  for (int i = 0; i < kCipherCount; ++i) {
    if (kCiphers[i].nAlgID == nAlgID) return core.ciphers[i][nMode - ECSP_MODE_ECB];
  }
  return nullptr;
}

int CipherKeyLength(int nAlgID) {
  const CipherRow* r = FindCipher(nAlgID);
  return r ? r->nKeyLength : -1;
}

int CipherBlockLength(int nAlgID) {
  const CipherRow* r = FindCipher(nAlgID);
  return r ? r->nBlockLength : 0;
}

int RC2EffectiveBits(int nAlgID) {
  const CipherRow* r = FindCipher(nAlgID);
  return r ? r->nEffectiveBits : 0;
}

namespace {

// A decoder for one DER structure, made once per thread and reused: making
// an OpenSSL 3 decoder context costs far more than the decoding itself.
// The context writes each key into m_pSlot, whose address must not change.
class KeyDecoder {
 public:
  KeyDecoder(const char* pszStructure, int nSelection)
      : m_pCtx(OSSL_DECODER_CTX_new_for_pkey(&m_pSlot, "DER", pszStructure, nullptr, nSelection, LibCtx(), nullptr)) {}
  ~KeyDecoder() {
    OSSL_DECODER_CTX_free(m_pCtx);
    EVP_PKEY_free(m_pSlot);
  }
  KeyDecoder(const KeyDecoder&) = delete;
  KeyDecoder& operator=(const KeyDecoder&) = delete;

  // The key, or null; bytes after the structure are refused.
  EVP_PKEY* Decode(const unsigned char* p, int n) {
    if (!m_pCtx) return nullptr;
    const unsigned char* q = p;
    std::size_t left = static_cast<std::size_t>(n);
    const bool ok = OSSL_DECODER_from_data(m_pCtx, &q, &left) == 1 && left == 0;
    EVP_PKEY* key = m_pSlot;
    m_pSlot = nullptr;
    if (ok) return key;
    EVP_PKEY_free(key);
    return nullptr;
  }

 private:
  EVP_PKEY* m_pSlot = nullptr;
  OSSL_DECODER_CTX* m_pCtx;
};

EVP_PKEY* DecodePrivateKeyInfo(const unsigned char* p, int n) {
  thread_local KeyDecoder decoder("PrivateKeyInfo", EVP_PKEY_KEYPAIR);
  return decoder.Decode(p, n);
}

EVP_PKEY* DecodeSubjectPublicKeyInfo(const unsigned char* p, int n) {
  thread_local KeyDecoder decoder("SubjectPublicKeyInfo", EVP_PKEY_PUBLIC_KEY);
  return decoder.Decode(p, n);
}

// The slower general forms: traditional private keys and PKCS#1 RSAPublicKey.
EVP_PKEY* DecodeOtherPrivate(const unsigned char* p, int n) {
  const unsigned char* q = p;
  return d2i_AutoPrivateKey_ex(nullptr, &q, n, LibCtx(), nullptr);
}

EVP_PKEY* DecodeRsaPublicKey(const unsigned char* p, int n) {
  const unsigned char* q = p;
  return d2i_PublicKey(EVP_PKEY_RSA, nullptr, &q, n);
}

// The last few public keys parsed, shared by all threads under the core
// lock: a verifier sees the same certificate keys again and again, and a
// fresh key object pays OpenSSL's per-key set-up on every use. Private keys
// are never kept, so no secret outlives the call that brought it.
class PublicKeyCache {
 public:
  ~PublicKeyCache() {
    for (Entry& e : m_entries) EVP_PKEY_free(e.pKey);
  }

  EVP_PKEY* Find(const unsigned char* p, int n) {
    CoreLock lock;
    if (!lock.held()) return nullptr;
    for (Entry& e : m_entries) {
      if (e.pKey && e.bsDer.length() == n && std::memcmp(e.bsDer.data(), p, static_cast<std::size_t>(n)) == 0) {
        return EVP_PKEY_up_ref(e.pKey) == 1 ? e.pKey : nullptr;
      }
    }
    return nullptr;
  }

  void Add(const unsigned char* p, int n, EVP_PKEY* key) {
    CoreLock lock;
    if (!lock.held()) return;
    Entry& e = m_entries[m_nNext];
    if (e.bsDer.setData(p, n) != BS_OK || EVP_PKEY_up_ref(key) != 1) {
      e.bsDer.clear();
      return;
    }
    EVP_PKEY_free(e.pKey);
    e.pKey = key;
    m_nNext = (m_nNext + 1) % kEntries;
  }

 private:
  static constexpr int kEntries = 8;
  struct Entry {
    ByteString bsDer;
    EVP_PKEY* pKey = nullptr;
  };
  Entry m_entries[kEntries];
  int m_nNext = 0;
};

PublicKeyCache& KeyCache() {
  static PublicKeyCache* cache = new PublicKeyCache;  // never destroyed: threads may parse at exit
  return *cache;
}

}  // namespace

EVP_PKEY* ParseKey(const unsigned char* p, int n, bool bExpectPrivate, bool* pbPrivate) {
  if (!p || n <= 0) return nullptr;
  if (EVP_PKEY* cached = KeyCache().Find(p, n)) {
    *pbPrivate = false;
    return cached;
  }
  using Decode = EVP_PKEY* (*)(const unsigned char*, int);
  struct Try {
    Decode fn;
    bool bPrivate;
  };
  // The expected side first, the common structures before the rare ones.
  static const Try kPrivateFirst[] = {{DecodePrivateKeyInfo, true}, {DecodeSubjectPublicKeyInfo, false},
                                      {DecodeOtherPrivate, true}, {DecodeRsaPublicKey, false}};
  static const Try kPublicFirst[] = {{DecodeSubjectPublicKeyInfo, false}, {DecodePrivateKeyInfo, true},
                                     {DecodeRsaPublicKey, false}, {DecodeOtherPrivate, true}};
  for (const Try& t : bExpectPrivate ? kPrivateFirst : kPublicFirst) {
    if (EVP_PKEY* key = t.fn(p, n)) {
      *pbPrivate = t.bPrivate;
      if (!t.bPrivate) KeyCache().Add(p, n, key);
      return key;
    }
  }
  return nullptr;
}

}  // namespace ecsp_internal
