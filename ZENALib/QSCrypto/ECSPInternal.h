// Shared pieces of the crypto core's sources: the OpenSSL library context,
// the fetched digests and ciphers, the digest engine used by digests, MACs
// and KCDSA, and the parsed public-key object. Only the core includes it.
#pragma once

#include <openssl/evp.h>

#include <cstddef>
#include <memory>

#include "ZENALib/QSCrypto/ECSP.h"
#include "ZENALib/QSCrypto/HAS160.h"

struct KCDSA_KEY;

namespace ecsp_internal {

// The core's own library context with the default and legacy providers
// loaded (once, on first use, from any thread). Null if loading failed.
OSSL_LIB_CTX* LibCtx();

enum DigestKind {
  kDigestMD5 = 0,
  kDigestSHA1 = 1,
  kDigestSHA256 = 2,
  kDigestHAS160 = 3,
  kDigestSHA224 = 4,
  kDigestSHA384 = 5,
  kDigestSHA512 = 6
};
constexpr int kDigestKinds = 7;
constexpr int kMaxDigestLength = 64;

int DigestLength(DigestKind kind);
const EVP_MD* Md(DigestKind kind);  // null for HAS-160
// The digest started by a core code; false when the code starts none.
bool SelectDigest(int nAlgID, DigestKind* pKind);

// One running digest, EVP or HAS-160 behind the same calls.
class Digest {
 public:
  Digest() = default;
  ~Digest();
  Digest(const Digest&) = delete;
  Digest& operator=(const Digest&) = delete;

  bool Init(DigestKind kind);
  bool Update(const unsigned char* p, std::size_t n);
  // Writes DigestLength(kind) bytes; the digest must be Init-ed again after.
  bool Final(unsigned char* out);
  DigestKind kind() const { return m_kind; }
  int length() const { return DigestLength(m_kind); }

 private:
  DigestKind m_kind = kDigestSHA1;
  EVP_MD_CTX* m_pMd = nullptr;
  HAS160_CTX m_has;
};

// Ciphers fetched from the library context, by core cipher and mode code.
const EVP_CIPHER* Cipher(int nAlgID, int nMode);
int CipherKeyLength(int nAlgID);  // 0 for the variable key length of RC2
int CipherBlockLength(int nAlgID);
int RC2EffectiveBits(int nAlgID);

}  // namespace ecsp_internal

// A parsed public key: an OpenSSL key, or a KCDSA key of our own.
struct ECSP_PKEY {
  EVP_PKEY* pEvp = nullptr;
  KCDSA_KEY* pKcdsa = nullptr;
  bool bPrivate = false;
};

namespace ecsp_internal {

void FreePKey(ECSP_PKEY* p);
bool IsRsaCipher(int nAlgID);
// Parses the key bytes for a public-key code into *ppKey (size and type
// checked against the code).
int ParsePKey(int nAlgID, const unsigned char* p, int n, bool bExpectPrivate, ECSP_PKEY** ppKey);
int RsaEncrypt(int nAlgID, const ECSP_PKEY* pKey, const unsigned char* pIn, int nInLen, unsigned char* pOut,
               int* pnOutLen);
int RsaDecrypt(int nAlgID, const ECSP_PKEY* pKey, const unsigned char* pIn, int nInLen, unsigned char* pOut,
               int* pnOutLen);
// Parses DER key bytes: PKCS#8 PrivateKeyInfo, SubjectPublicKeyInfo, a
// traditional private key or a PKCS#1 RSAPublicKey, trying the expected
// side first. *pbPrivate tells which side was found.
EVP_PKEY* ParseKey(const unsigned char* p, int n, bool bExpectPrivate, bool* pbPrivate);

// The core's diagnostics (stderr) when its process-wide lock cannot be made
// or taken.
constexpr char kMsgCreateMutexFailed[] = "CreateMutex Failed. [%d]\n";
constexpr char kMsgNoCoreLock[] = "lMutex is not set.\n";

// True when the process-wide lock of the core is held by this object.
class CoreLock {
 public:
  CoreLock();
  ~CoreLock();
  CoreLock(const CoreLock&) = delete;
  CoreLock& operator=(const CoreLock&) = delete;
  bool held() const { return m_bHeld; }

 private:
  bool m_bHeld = false;
};

// The staged calls (MACs, signatures): each adds its stage to a failing
// code, refuses a context of the other direction (generate/verify), and
// the final step releases the context.
template <class Ctx, class Start>
int StagedInit(Ctx** ppCtx, Start start) {
  if (!ppCtx) return ECSP_STAGE_INIT + ECSP_INVALID_DATA_POINTER;
  std::unique_ptr<Ctx> ctx;
  if (int rc = start(&ctx)) return ECSP_STAGE_INIT + rc;
  *ppCtx = ctx.release();
  return ECSP_OK;
}

template <class Ctx, class Step>
int StagedUpdate(Ctx* pCtx, bool bVerify, Step step) {
  if (!pCtx || pCtx->bVerify != bVerify) return ECSP_STAGE_UPDATE + ECSP_INVALID_CLASS;
  const int rc = step(pCtx);
  return rc ? ECSP_STAGE_UPDATE + rc : ECSP_OK;
}

template <class Ctx, class Finish>
int StagedFinal(Ctx* pCtx, bool bVerify, Finish finish) {
  if (!pCtx || pCtx->bVerify != bVerify) return ECSP_STAGE_FINAL + ECSP_INVALID_CLASS;
  const int rc = finish(pCtx);
  delete pCtx;
  return rc ? ECSP_STAGE_FINAL + rc : ECSP_OK;
}

}  // namespace ecsp_internal
