// Public-key operations of the core: RSA encryption, RSA/ECDSA/DSA/KCDSA
// signatures (one-shot and staged), DH/ECDH shared keys and key pairs.
#include <openssl/core_names.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include "ZENALib/QSCrypto/ECSPInternal.h"
#include "ZENALib/QSCrypto/KCDSA.h"

using namespace ecsp_internal;

namespace {

// kRsaEncrypt and kRsaOaep encrypt; kRsaPkcs1 and kRsaPss sign.
enum Family { kRsaEncrypt, kRsaOaep, kRsaPkcs1, kRsaPss, kEcdsa, kDsa, kKcdsa, kEcdh, kDh };

// One row per public-key code: the family, the digest, the key size (RSA
// modulus or KCDSA p, 0 for any) and the curve.
struct PkRow {
  int nAlgID;
  Family family;
  DigestKind digest;
  int nBits;
  const char* curve;
};

constexpr PkRow kRows[] = {
    {ecsp::kRSA512, kRsaEncrypt, kDigestSHA1, 512, nullptr},
    {ecsp::kRSA1024, kRsaEncrypt, kDigestSHA1, 1024, nullptr},
    {ecsp::kRSA2048, kRsaEncrypt, kDigestSHA1, 2048, nullptr},
    {ecsp::kRSAOAEP1024, kRsaOaep, kDigestSHA1, 1024, nullptr},
    {ecsp::kRSAOAEP2048, kRsaOaep, kDigestSHA1, 2048, nullptr},
    {ecsp::kMD5RSA512, kRsaPkcs1, kDigestMD5, 512, nullptr},
    {ecsp::kMD5RSA1024, kRsaPkcs1, kDigestMD5, 1024, nullptr},
    {ecsp::kMD5RSA2048, kRsaPkcs1, kDigestMD5, 2048, nullptr},
    {ecsp::kSHA1RSA512, kRsaPkcs1, kDigestSHA1, 512, nullptr},
    {ecsp::kSHA1RSA1024, kRsaPkcs1, kDigestSHA1, 1024, nullptr},
    {ecsp::kSHA1RSA2048, kRsaPkcs1, kDigestSHA1, 2048, nullptr},
    {ecsp::kSHA256RSA1024, kRsaPkcs1, kDigestSHA256, 1024, nullptr},
    {ecsp::kSHA256RSA2048, kRsaPkcs1, kDigestSHA256, 2048, nullptr},
    {ecsp::kPSSSHA1RSA1024, kRsaPss, kDigestSHA1, 1024, nullptr},
    {ecsp::kPSSSHA1RSA2048, kRsaPss, kDigestSHA1, 2048, nullptr},
    {ecsp::kKCDSA_SHA1_512, kKcdsa, kDigestSHA1, 512, nullptr},
    {ecsp::kKCDSA_SHA1_1024, kKcdsa, kDigestSHA1, 1024, nullptr},
    {ecsp::kKCDSA_SHA1_2048, kKcdsa, kDigestSHA1, 2048, nullptr},
    {ecsp::kKCDSA_HAS160_512, kKcdsa, kDigestHAS160, 512, nullptr},
    {ecsp::kKCDSA_HAS160_1024, kKcdsa, kDigestHAS160, 1024, nullptr},
    {ecsp::kKCDSA_HAS160_2048, kKcdsa, kDigestHAS160, 2048, nullptr},
    {ecsp::kDSA_SHA1, kDsa, kDigestSHA1, 0, nullptr},
    {ecsp::kECDSA_SHA1_K163, kEcdsa, kDigestSHA1, 0, "sect163k1"},
    {ecsp::kECDSA_SHA1_C2PNB163V1, kEcdsa, kDigestSHA1, 0, "c2pnb163v1"},
    {ecsp::kECDSA_SHA1_P160, kEcdsa, kDigestSHA1, 0, "secp160r1"},
    {ecsp::kECDH_K163, kEcdh, kDigestSHA1, 0, "sect163k1"},
    {ecsp::kECDH_C2PNB163V1, kEcdh, kDigestSHA1, 0, "c2pnb163v1"},
    {ecsp::kECDH_P160, kEcdh, kDigestSHA1, 0, "secp160r1"},
    {ecsp::kDH, kDh, kDigestSHA1, 0, nullptr},
};

const PkRow* FindRow(int nAlgID) {
  for (const PkRow& r : kRows) {
    if (r.nAlgID == nAlgID) return &r;
  }
  return nullptr;
}

bool IsSignature(Family f) { return f == kRsaPkcs1 || f == kRsaPss || f == kEcdsa || f == kDsa || f == kKcdsa; }

struct PKeyDeleter {
  void operator()(ECSP_PKEY* p) const { FreePKey(p); }
};
using PKeyPtr = std::unique_ptr<ECSP_PKEY, PKeyDeleter>;
struct EvpPkeyCtxDeleter {
  void operator()(EVP_PKEY_CTX* p) const { EVP_PKEY_CTX_free(p); }
};
using EvpPkeyCtxPtr = std::unique_ptr<EVP_PKEY_CTX, EvpPkeyCtxDeleter>;
struct EvpPkeyDeleter {
  void operator()(EVP_PKEY* p) const { EVP_PKEY_free(p); }
};
using EvpPkeyPtr = std::unique_ptr<EVP_PKEY, EvpPkeyDeleter>;

// Does the parsed key fit the row (type, size, curve)?
bool KeyFits(const PkRow& row, const ECSP_PKEY* k) {
  if (row.family == kKcdsa) return k->pKcdsa && KCDSA_PBits(k->pKcdsa) == row.nBits;
  if (!k->pEvp) return false;
  switch (row.family) {
    case kRsaEncrypt:
    case kRsaOaep:
    case kRsaPkcs1:
    case kRsaPss:
      return EVP_PKEY_is_a(k->pEvp, "RSA") && EVP_PKEY_get_bits(k->pEvp) == row.nBits;
    case kDsa:
      return EVP_PKEY_is_a(k->pEvp, "DSA");
    case kDh:
      return EVP_PKEY_is_a(k->pEvp, "DH") || EVP_PKEY_is_a(k->pEvp, "DHX");
    default: {
      char group[64];
      std::size_t len = 0;
      return EVP_PKEY_is_a(k->pEvp, "EC") &&
             EVP_PKEY_get_group_name(k->pEvp, group, sizeof(group), &len) == 1 && std::strcmp(group, row.curve) == 0;
    }
  }
}

int ParseRowKey(const PkRow& row, const unsigned char* p, int n, bool bExpectPrivate, PKeyPtr* pOut) {
  if (!p || n <= 0) return ECSP_INVALID_KEY_POINTER;
  PKeyPtr key(new (std::nothrow) ECSP_PKEY);
  if (!key) return ECSP_MEMORY_ERROR;
  if (row.family == kKcdsa) {
    if (int rc = KCDSA_ParseKey(p, n, &key->pKcdsa)) return rc;
    key->bPrivate = KCDSA_HasPrivate(key->pKcdsa);
  } else if (!(key->pEvp = ParseKey(p, n, bExpectPrivate, &key->bPrivate))) {
    return ECSP_INVALID_KEY;
  }
  if (!KeyFits(row, key.get())) return ECSP_INVALID_KEY;
  *pOut = std::move(key);
  return ECSP_OK;
}

// Parses a public key for a verification by scheme: the kind must fit the
// family, the size and curve are the key's own.
int ParseAnyKey(const PkRow& row, const unsigned char* p, int n, PKeyPtr* pOut) {
  if (!p || n <= 0) return ECSP_INVALID_KEY_POINTER;
  PKeyPtr key(new (std::nothrow) ECSP_PKEY);
  if (!key) return ECSP_MEMORY_ERROR;
  if (row.family == kKcdsa) {
    if (int rc = KCDSA_ParseKey(p, n, &key->pKcdsa)) return rc;
    key->bPrivate = KCDSA_HasPrivate(key->pKcdsa);
  } else {
    if (!(key->pEvp = ParseKey(p, n, false, &key->bPrivate))) return ECSP_INVALID_KEY;
    const char* type = row.family == kEcdsa ? "EC" : row.family == kDsa ? "DSA" : "RSA";
    // An RSA-PSS key (RFC 4055 id-RSASSA-PSS) is an RSA key restricted to PSS.
    const bool fits = EVP_PKEY_is_a(key->pEvp, type) ||
                      (row.family == kRsaPss && EVP_PKEY_is_a(key->pEvp, "RSA-PSS"));
    if (!fits) return ECSP_INVALID_KEY;
  }
  *pOut = std::move(key);
  return ECSP_OK;
}

}  // namespace

namespace ecsp_internal {

void FreePKey(ECSP_PKEY* p) {
  if (!p) return;
  EVP_PKEY_free(p->pEvp);
  KCDSA_FreeKey(p->pKcdsa);
  delete p;
}

bool IsRsaCipher(int nAlgID) {
  const PkRow* row = FindRow(nAlgID);
  return row && (row->family == kRsaEncrypt || row->family == kRsaOaep);
}

int ParsePKey(int nAlgID, const unsigned char* p, int n, bool bExpectPrivate, ECSP_PKEY** ppKey) {
  const PkRow* row = FindRow(nAlgID);
  if (!row) return ECSP_INVALID_ALGORITHM;
  PKeyPtr key;
  if (int rc = ParseRowKey(*row, p, n, bExpectPrivate, &key)) return rc;
  *ppKey = key.release();
  return ECSP_OK;
}

namespace {

int RsaCrypt(bool bEncrypt, int nAlgID, const ECSP_PKEY* pKey, const unsigned char* pIn, int nInLen,
             unsigned char* pOut, int* pnOutLen) {
  const PkRow* row = FindRow(nAlgID);
  if (!row || !pKey || !pKey->pEvp) return ECSP_INVALID_KEY;
  if (!bEncrypt && !pKey->bPrivate) return ECSP_INVALID_KEY;
  const int k = EVP_PKEY_get_size(pKey->pEvp);
  // PKCS#1: at most k - 11 octets under v1.5, k - 2*20 - 2 under OAEP-SHA-1.
  const int maxIn = row->family == kRsaOaep ? k - 42 : k - 11;
  if (bEncrypt ? nInLen > maxIn : nInLen != k) return bEncrypt ? ECSP_INVALID_DATA : ECSP_INVALID_ENCRYPTED_DATA;
  EvpPkeyCtxPtr ctx(EVP_PKEY_CTX_new_from_pkey(LibCtx(), pKey->pEvp, nullptr));
  if (!ctx) return ECSP_MEMORY_ERROR;
  if ((bEncrypt ? EVP_PKEY_encrypt_init(ctx.get()) : EVP_PKEY_decrypt_init(ctx.get())) != 1) return ECSP_INVALID_KEY;
  if (row->family == kRsaOaep) {
    if (EVP_PKEY_CTX_set_rsa_padding(ctx.get(), RSA_PKCS1_OAEP_PADDING) != 1 ||
        EVP_PKEY_CTX_set_rsa_oaep_md(ctx.get(), Md(kDigestSHA1)) != 1 ||
        EVP_PKEY_CTX_set_rsa_mgf1_md(ctx.get(), Md(kDigestSHA1)) != 1) {
      return ECSP_FAIL;
    }
  } else if (EVP_PKEY_CTX_set_rsa_padding(ctx.get(), RSA_PKCS1_PADDING) != 1) {
    return ECSP_FAIL;
  }
  std::size_t outLen = 0;
  const std::size_t inLen = static_cast<std::size_t>(nInLen);
  if ((bEncrypt ? EVP_PKEY_encrypt(ctx.get(), nullptr, &outLen, pIn, inLen)
                : EVP_PKEY_decrypt(ctx.get(), nullptr, &outLen, pIn, inLen)) != 1) {
    return ECSP_FAIL;
  }
  if (outLen > static_cast<std::size_t>(*pnOutLen)) return ECSP_NOT_ENOUGH_BUFFER;
  if ((bEncrypt ? EVP_PKEY_encrypt(ctx.get(), pOut, &outLen, pIn, inLen)
                : EVP_PKEY_decrypt(ctx.get(), pOut, &outLen, pIn, inLen)) != 1) {
    return bEncrypt ? ECSP_FAIL : ECSP_INVALID_ENCRYPTED_DATA;
  }
  *pnOutLen = static_cast<int>(outLen);
  return ECSP_OK;
}

}  // namespace

int RsaEncrypt(int nAlgID, const ECSP_PKEY* pKey, const unsigned char* pIn, int nInLen, unsigned char* pOut,
               int* pnOutLen) {
  return RsaCrypt(true, nAlgID, pKey, pIn, nInLen, pOut, pnOutLen);
}

int RsaDecrypt(int nAlgID, const ECSP_PKEY* pKey, const unsigned char* pIn, int nInLen, unsigned char* pOut,
               int* pnOutLen) {
  return RsaCrypt(false, nAlgID, pKey, pIn, nInLen, pOut, pnOutLen);
}

}  // namespace ecsp_internal

// A staged signature or verification: an EVP digest-sign context, or our
// KCDSA digest.
struct ECSP_SIGN_CTX {
  const PkRow* pRow = nullptr;
  PkRow exRow{};  // the row of an ECSP_VerifyDataEx call (pRow points here)
  int nSaltLen = 0;
  bool bVerify = false;
  PKeyPtr key;
  EVP_MD_CTX* pMd = nullptr;
  Digest kcdsa;
  ~ECSP_SIGN_CTX() { EVP_MD_CTX_free(pMd); }
};

namespace {

// Starts a signature or verification for a code's row, or (pEx) for the
// row of an ECSP_VerifyDataEx call: code 0, the MGF1 digest in nBits.
int StartSign(bool bVerify, int nAlgID, const unsigned char* pKey, int nKeyLen, std::unique_ptr<ECSP_SIGN_CTX>* pOut,
              const PkRow* pEx = nullptr, int nSaltLen = 0) {
  const PkRow* row = pEx ? pEx : FindRow(nAlgID);
  if (!row || !IsSignature(row->family)) return ECSP_INVALID_ALGORITHM;
  std::unique_ptr<ECSP_SIGN_CTX> ctx(new (std::nothrow) ECSP_SIGN_CTX);
  if (!ctx) return ECSP_MEMORY_ERROR;
  if (pEx) {
    ctx->exRow = *pEx;
    row = &ctx->exRow;
    ctx->nSaltLen = nSaltLen;
  }
  ctx->pRow = row;
  ctx->bVerify = bVerify;
  const int parsed =
      pEx ? ParseAnyKey(*row, pKey, nKeyLen, &ctx->key) : ParseRowKey(*row, pKey, nKeyLen, !bVerify, &ctx->key);
  if (parsed) return parsed;
  if (!bVerify && !ctx->key->bPrivate) return ECSP_INVALID_KEY;
  if (row->family == kKcdsa) {
    if (int rc = KCDSA_Start(ctx->key->pKcdsa, row->digest, &ctx->kcdsa)) return rc;
    *pOut = std::move(ctx);
    return ECSP_OK;
  }
  if (!(ctx->pMd = EVP_MD_CTX_new())) return ECSP_MEMORY_ERROR;
  EVP_PKEY_CTX* pctx = nullptr;
  const char* mdName = EVP_MD_get0_name(Md(row->digest));
  const int ok = bVerify ? EVP_DigestVerifyInit_ex(ctx->pMd, &pctx, mdName, LibCtx(), nullptr, ctx->key->pEvp, nullptr)
                         : EVP_DigestSignInit_ex(ctx->pMd, &pctx, mdName, LibCtx(), nullptr, ctx->key->pEvp, nullptr);
  if (ok != 1) return ECSP_INVALID_KEY;
  if (row->family == kRsaPss && row->nAlgID == 0) {
    if (EVP_PKEY_CTX_set_rsa_padding(pctx, RSA_PKCS1_PSS_PADDING) != 1 ||
        EVP_PKEY_CTX_set_rsa_mgf1_md(pctx, Md(static_cast<DigestKind>(row->nBits))) != 1 ||
        EVP_PKEY_CTX_set_rsa_pss_saltlen(pctx, ctx->nSaltLen) != 1) {
      return ECSP_FAIL;
    }
  } else if (row->family == kRsaPss) {
    // The PSS codes stand for RSASSA-PSS-params with SHA-1, MGF1-SHA-1 and
    // the default salt of 20 octets (RFC 8017 A.2.3). Verification takes the
    // salt length as a parameter (RFC 8017 9.1.2), so any other is refused.
    if (EVP_PKEY_CTX_set_rsa_padding(pctx, RSA_PKCS1_PSS_PADDING) != 1 ||
        EVP_PKEY_CTX_set_rsa_pss_saltlen(pctx, RSA_PSS_SALTLEN_DIGEST) != 1) {
      return ECSP_FAIL;
    }
  }
  *pOut = std::move(ctx);
  return ECSP_OK;
}

int UpdateSign(ECSP_SIGN_CTX* ctx, const unsigned char* pIn, int nInLen) {
  if (nInLen < 0 || (!pIn && nInLen > 0)) return ECSP_INVALID_DATA_POINTER;
  const std::size_t n = static_cast<std::size_t>(nInLen);
  if (ctx->pRow->family == kKcdsa) return ctx->kcdsa.Update(pIn, n) ? ECSP_OK : ECSP_FAIL;
  if (n == 0) return ECSP_OK;
  const int ok = ctx->bVerify ? EVP_DigestVerifyUpdate(ctx->pMd, pIn, n) : EVP_DigestSignUpdate(ctx->pMd, pIn, n);
  return ok == 1 ? ECSP_OK : ECSP_FAIL;
}

int FinishSign(ECSP_SIGN_CTX* ctx, ByteString* pSignature) {
  if (!pSignature) return ECSP_INVALID_DATA_POINTER;
  if (ctx->pRow->family == kKcdsa) return KCDSA_FinishSign(ctx->key->pKcdsa, &ctx->kcdsa, nullptr, pSignature);
  std::size_t len = 0;
  if (EVP_DigestSignFinal(ctx->pMd, nullptr, &len) != 1) return ECSP_FAIL;
  if (pSignature->resize(static_cast<int>(len)) != BS_OK) return ECSP_MEMORY_ERROR;
  if (EVP_DigestSignFinal(ctx->pMd, pSignature->buffer(), &len) != 1) return ECSP_FAIL;
  // DER signatures (ECDSA, DSA) may come out shorter than the bound.
  return static_cast<int>(len) == pSignature->length() || pSignature->resize(static_cast<int>(len)) == BS_OK
             ? ECSP_OK
             : ECSP_MEMORY_ERROR;
}

int FinishVerify(ECSP_SIGN_CTX* ctx, const unsigned char* pSig, int nSigLen) {
  if (!pSig || nSigLen <= 0) return ECSP_INVALID_SIGNATURE;
  if (ctx->pRow->family == kKcdsa) return KCDSA_FinishVerify(ctx->key->pKcdsa, &ctx->kcdsa, pSig, nSigLen);
  const Family f = ctx->pRow->family;
  if ((f == kRsaPkcs1 || f == kRsaPss) && nSigLen != EVP_PKEY_get_size(ctx->key->pEvp)) return ECSP_INVALID_SIGNATURE;
  const int ok = EVP_DigestVerifyFinal(ctx->pMd, pSig, static_cast<std::size_t>(nSigLen));
  return ok == 1 ? ECSP_OK : ECSP_VERIFY_FAIL;
}

}  // namespace

int ECSP_SignData(int nAlgID, const unsigned char* pKey, int nKeyLen, const unsigned char* pIn, int nInLen,
                  ByteString* pSignature) {
  std::unique_ptr<ECSP_SIGN_CTX> ctx;
  if (int rc = StartSign(false, nAlgID, pKey, nKeyLen, &ctx)) return rc;
  if (int rc = UpdateSign(ctx.get(), pIn, nInLen)) return rc;
  return FinishSign(ctx.get(), pSignature);
}

int ECSP_VerifyData(int nAlgID, const unsigned char* pKey, int nKeyLen, const unsigned char* pIn, int nInLen,
                    const unsigned char* pSig, int nSigLen) {
  std::unique_ptr<ECSP_SIGN_CTX> ctx;
  if (int rc = StartSign(true, nAlgID, pKey, nKeyLen, &ctx)) return rc;
  if (int rc = UpdateSign(ctx.get(), pIn, nInLen)) return rc;
  return FinishVerify(ctx.get(), pSig, nSigLen);
}

int ECSP_SignDataInit(int nAlgID, const unsigned char* pKey, int nKeyLen, ECSP_SIGN_CTX** ppCtx) {
  return StagedInit(ppCtx, [&](std::unique_ptr<ECSP_SIGN_CTX>* p) { return StartSign(false, nAlgID, pKey, nKeyLen, p); });
}

int ECSP_SignDataUpdate(ECSP_SIGN_CTX* pCtx, const unsigned char* pIn, int nInLen) {
  return StagedUpdate(pCtx, false, [&](ECSP_SIGN_CTX* c) { return UpdateSign(c, pIn, nInLen); });
}

int ECSP_SignDataFinal(ECSP_SIGN_CTX* pCtx, ByteString* pSignature) {
  return StagedFinal(pCtx, false, [&](ECSP_SIGN_CTX* c) { return FinishSign(c, pSignature); });
}

int ECSP_VerifyDataInit(int nAlgID, const unsigned char* pKey, int nKeyLen, ECSP_SIGN_CTX** ppCtx) {
  return StagedInit(ppCtx, [&](std::unique_ptr<ECSP_SIGN_CTX>* p) { return StartSign(true, nAlgID, pKey, nKeyLen, p); });
}

int ECSP_VerifyDataUpdate(ECSP_SIGN_CTX* pCtx, const unsigned char* pIn, int nInLen) {
  return StagedUpdate(pCtx, true, [&](ECSP_SIGN_CTX* c) { return UpdateSign(c, pIn, nInLen); });
}

int ECSP_VerifyDataFinal(ECSP_SIGN_CTX* pCtx, const unsigned char* pSig, int nSigLen) {
  return StagedFinal(pCtx, true, [&](ECSP_SIGN_CTX* c) { return FinishVerify(c, pSig, nSigLen); });
}

void ECSP_SignDataFree(ECSP_SIGN_CTX* pCtx) { delete pCtx; }

int ECSP_VerifyDataEx(const ECSP_VERIFY_PARAMS& params, const unsigned char* pKey, int nKeyLen,
                      const unsigned char* pIn, int nInLen, const unsigned char* pSig, int nSigLen) {
  static constexpr struct {
    int nScheme;
    Family family;
  } kSchemes[] = {{ECSP_SCHEME_RSA_PKCS1, kRsaPkcs1},
                  {ECSP_SCHEME_RSA_PSS, kRsaPss},
                  {ECSP_SCHEME_ECDSA, kEcdsa},
                  {ECSP_SCHEME_DSA, kDsa},
                  {ECSP_SCHEME_KCDSA, kKcdsa}};
  PkRow row{0, kRsaPkcs1, kDigestSHA1, 0, nullptr};
  bool known = false;
  for (const auto& s : kSchemes) {
    if (s.nScheme == params.nScheme) row.family = s.family, known = true;
  }
  DigestKind digest, mgf = kDigestSHA1;
  if (!known || !SelectDigest(params.nDigest, &digest)) return ECSP_INVALID_ALGORITHM;
  // HAS-160 has no EVP digest: only our KCDSA takes it.
  if (digest == kDigestHAS160 && row.family != kKcdsa) return ECSP_INVALID_ALGORITHM;
  if (row.family == kRsaPss) {
    if (!SelectDigest(params.nMgfDigest, &mgf) || mgf == kDigestHAS160) return ECSP_INVALID_ALGORITHM;
    if (params.nSaltLen < 0) return ECSP_INVALID_DATA;
  }
  row.digest = digest;
  row.nBits = mgf;  // the MGF1 digest of a PSS row (see StartSign)
  std::unique_ptr<ECSP_SIGN_CTX> ctx;
  if (int rc = StartSign(true, 0, pKey, nKeyLen, &ctx, &row, params.nSaltLen)) return rc;
  if (int rc = UpdateSign(ctx.get(), pIn, nInLen)) return rc;
  return FinishVerify(ctx.get(), pSig, nSigLen);
}

int ECSP_GenerateSharedKey(int nAlgID, const unsigned char* pPrivKey, int nPrivLen, const unsigned char* pPeerKey,
                           int nPeerLen, ByteString* pShared) {
  const PkRow* row = FindRow(nAlgID);
  if (!row || (row->family != kEcdh && row->family != kDh)) return ECSP_INVALID_ALGORITHM;
  if (!pShared) return ECSP_INVALID_DATA_POINTER;
  PKeyPtr mine, peer;
  if (int rc = ParseRowKey(*row, pPrivKey, nPrivLen, true, &mine)) return rc;
  if (int rc = ParseRowKey(*row, pPeerKey, nPeerLen, false, &peer)) return rc;
  if (!mine->bPrivate) return ECSP_INVALID_KEY;
  EvpPkeyCtxPtr ctx(EVP_PKEY_CTX_new_from_pkey(LibCtx(), mine->pEvp, nullptr));
  std::size_t len = 0;
  if (!ctx || EVP_PKEY_derive_init(ctx.get()) != 1) return ECSP_INVALID_KEY;
  // A peer key on other domain parameters is refused here.
  if (EVP_PKEY_derive_set_peer(ctx.get(), peer->pEvp) != 1) return ECSP_INVALID_KEY;
  if (EVP_PKEY_derive(ctx.get(), nullptr, &len) != 1) return ECSP_FAIL;
  pShared->zeroize();
  if (pShared->resize(static_cast<int>(len)) != BS_OK) return ECSP_MEMORY_ERROR;
  if (EVP_PKEY_derive(ctx.get(), pShared->buffer(), &len) != 1) return ECSP_FAIL;
  return static_cast<int>(len) == pShared->length() || pShared->resize(static_cast<int>(len)) == BS_OK
             ? ECSP_OK
             : ECSP_MEMORY_ERROR;
}

namespace {

int GenerateEvpKey(const PkRow& row, EvpPkeyPtr* pOut) {
  OSSL_LIB_CTX* lib = LibCtx();
  switch (row.family) {
    case kRsaEncrypt:
    case kRsaOaep:
    case kRsaPkcs1:
    case kRsaPss:
      pOut->reset(EVP_PKEY_Q_keygen(lib, nullptr, "RSA", static_cast<std::size_t>(row.nBits)));
      break;
    case kEcdsa:
    case kEcdh:
      pOut->reset(EVP_PKEY_Q_keygen(lib, nullptr, "EC", row.curve));
      break;
    case kDh: {
      EvpPkeyCtxPtr ctx(EVP_PKEY_CTX_new_from_name(lib, "DH", nullptr));
      EVP_PKEY* key = nullptr;
      const OSSL_PARAM params[] = {
          OSSL_PARAM_construct_utf8_string(OSSL_PKEY_PARAM_GROUP_NAME, const_cast<char*>("ffdhe2048"), 0),
          OSSL_PARAM_construct_end()};
      if (ctx && EVP_PKEY_keygen_init(ctx.get()) == 1 && EVP_PKEY_CTX_set_params(ctx.get(), params) == 1 &&
          EVP_PKEY_generate(ctx.get(), &key) == 1) {
        pOut->reset(key);
      }
      break;
    }
    case kDsa: {
      EvpPkeyCtxPtr pctx(EVP_PKEY_CTX_new_from_name(lib, "DSA", nullptr));
      EVP_PKEY* params = nullptr;
      if (!pctx || EVP_PKEY_paramgen_init(pctx.get()) != 1 ||
          EVP_PKEY_CTX_set_dsa_paramgen_bits(pctx.get(), 1024) != 1 ||
          EVP_PKEY_CTX_set_dsa_paramgen_q_bits(pctx.get(), 160) != 1 || EVP_PKEY_generate(pctx.get(), &params) != 1) {
        return ECSP_FAIL;
      }
      EvpPkeyPtr paramKey(params);
      EvpPkeyCtxPtr kctx(EVP_PKEY_CTX_new_from_pkey(lib, params, nullptr));
      EVP_PKEY* key = nullptr;
      if (kctx && EVP_PKEY_keygen_init(kctx.get()) == 1 && EVP_PKEY_generate(kctx.get(), &key) == 1) pOut->reset(key);
      break;
    }
    default:
      return ECSP_INVALID_ALGORITHM;
  }
  return *pOut ? ECSP_OK : ECSP_FAIL;
}

}  // namespace

int ECSP_GenerateKeyPair(int nAlgID, const ByteString& bsDomain, ByteString* pPrivateKey, ByteString* pPublicKey) {
  const PkRow* row = FindRow(nAlgID);
  if (!row) return ECSP_INVALID_ALGORITHM;
  if (!pPrivateKey || !pPublicKey) return ECSP_INVALID_DATA_POINTER;
  CoreLock lock;
  if (!lock.held()) {
    std::fputs(kMsgNoCoreLock, stderr);
    return ECSP_FAIL;
  }
  if (row->family == kKcdsa) return KCDSA_GenerateKeyPair(row->nBits, bsDomain, pPrivateKey, pPublicKey);
  EvpPkeyPtr key;
  if (int rc = GenerateEvpKey(*row, &key)) return rc;
  // PKCS#8 PrivateKeyInfo and SubjectPublicKeyInfo.
  PKCS8_PRIV_KEY_INFO* p8 = EVP_PKEY2PKCS8(key.get());
  if (!p8) return ECSP_FAIL;
  unsigned char* der = nullptr;
  const int n = i2d_PKCS8_PRIV_KEY_INFO(p8, &der);
  PKCS8_PRIV_KEY_INFO_free(p8);
  if (n <= 0) return ECSP_FAIL;
  const int rc = pPrivateKey->setData(der, n) == BS_OK ? ECSP_OK : ECSP_MEMORY_ERROR;
  OPENSSL_clear_free(der, static_cast<std::size_t>(n));
  if (rc) return rc;
  const int m = i2d_PUBKEY(key.get(), nullptr);
  if (m <= 0) return ECSP_FAIL;
  if (pPublicKey->resize(m) != BS_OK) return ECSP_MEMORY_ERROR;
  unsigned char* p = pPublicKey->buffer();
  return i2d_PUBKEY(key.get(), &p) == m ? ECSP_OK : ECSP_FAIL;
}
