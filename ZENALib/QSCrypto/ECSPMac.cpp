// HMAC (RFC 2104) over the core's digests, including HAS-160, and the
// random generator.
#include <openssl/crypto.h>
#include <openssl/rand.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include "ZENALib/QSCrypto/ECSPInternal.h"
#include "base/SecureZero.h"

using namespace ecsp_internal;

namespace {

constexpr int kBlock = 64;  // the block length of every digest here

struct MacRow {
  int nAlgID;
  DigestKind digest;
};

constexpr MacRow kMacs[] = {{ecsp::kHMAC_MD5, kDigestMD5},
                            {ecsp::kHMAC_SHA1, kDigestSHA1},
                            {ecsp::kHMAC_SHA256, kDigestSHA256},
                            {ecsp::kHMAC_HAS160, kDigestHAS160}};

}  // namespace

struct ECSP_MAC_CTX {
  Digest inner;
  Digest outer;
  bool bVerify = false;
};

namespace {

int StartMac(bool bVerify, int nAlgID, const unsigned char* pKey, int nKeyLen, std::unique_ptr<ECSP_MAC_CTX>* pOut) {
  const MacRow* row = nullptr;
  for (const MacRow& r : kMacs) {
    if (r.nAlgID == nAlgID) row = &r;
  }
  if (!row) return ECSP_INVALID_ALGORITHM;
  if (nKeyLen < 0 || (!pKey && nKeyLen > 0)) return ECSP_INVALID_KEY_POINTER;
  std::unique_ptr<ECSP_MAC_CTX> ctx(new (std::nothrow) ECSP_MAC_CTX);
  if (!ctx) return ECSP_MEMORY_ERROR;
  ctx->bVerify = bVerify;
  // K0: the key, or its digest when longer than a block, zero-filled.
  unsigned char k0[kBlock] = {};
  if (nKeyLen > kBlock) {
    if (!ctx->inner.Init(row->digest) || !ctx->inner.Update(pKey, static_cast<std::size_t>(nKeyLen)) ||
        !ctx->inner.Final(k0)) {
      return ECSP_FAIL;
    }
  } else if (nKeyLen > 0) {
    std::memcpy(k0, pKey, static_cast<std::size_t>(nKeyLen));
  }
  unsigned char pad[kBlock];
  for (int i = 0; i < kBlock; ++i) pad[i] = k0[i] ^ 0x36;
  bool ok = ctx->inner.Init(row->digest) && ctx->inner.Update(pad, kBlock);
  for (int i = 0; i < kBlock; ++i) pad[i] = k0[i] ^ 0x5C;
  ok = ok && ctx->outer.Init(row->digest) && ctx->outer.Update(pad, kBlock);
  SecureZero(k0, sizeof(k0));
  SecureZero(pad, sizeof(pad));
  if (!ok) return ECSP_FAIL;
  *pOut = std::move(ctx);
  return ECSP_OK;
}

int UpdateMac(ECSP_MAC_CTX* ctx, const unsigned char* pIn, int nInLen) {
  if (nInLen < 0 || (!pIn && nInLen > 0)) return ECSP_INVALID_DATA_POINTER;
  return ctx->inner.Update(pIn, static_cast<std::size_t>(nInLen)) ? ECSP_OK : ECSP_FAIL;
}

int FinishMac(ECSP_MAC_CTX* ctx, unsigned char* pMac) {
  unsigned char h[kMaxDigestLength];
  const bool ok = ctx->inner.Final(h) && ctx->outer.Update(h, static_cast<std::size_t>(ctx->inner.length())) &&
                  ctx->outer.Final(pMac);
  return ok ? ECSP_OK : ECSP_FAIL;
}

int FinishGenerate(ECSP_MAC_CTX* ctx, ByteString* pMac) {
  if (!pMac) return ECSP_INVALID_DATA_POINTER;
  unsigned char mac[kMaxDigestLength];
  if (int rc = FinishMac(ctx, mac)) return rc;
  return pMac->setData(mac, ctx->outer.length()) == BS_OK ? ECSP_OK : ECSP_MEMORY_ERROR;
}

int FinishVerify(ECSP_MAC_CTX* ctx, const unsigned char* pMac, int nMacLen) {
  unsigned char mac[kMaxDigestLength];
  if (int rc = FinishMac(ctx, mac)) return rc;
  if (!pMac || nMacLen != ctx->outer.length()) return ECSP_VERIFY_FAIL;
  return CRYPTO_memcmp(mac, pMac, static_cast<std::size_t>(nMacLen)) == 0 ? ECSP_OK : ECSP_VERIFY_FAIL;
}

}  // namespace

int ECSP_GenerateMAC(int nAlgID, const unsigned char* pKey, int nKeyLen, const unsigned char* pIn, int nInLen,
                     ByteString* pMac) {
  std::unique_ptr<ECSP_MAC_CTX> ctx;
  if (int rc = StartMac(false, nAlgID, pKey, nKeyLen, &ctx)) return rc;
  if (int rc = UpdateMac(ctx.get(), pIn, nInLen)) return rc;
  return FinishGenerate(ctx.get(), pMac);
}

int ECSP_VerifyMAC(int nAlgID, const unsigned char* pKey, int nKeyLen, const unsigned char* pIn, int nInLen,
                   const unsigned char* pMac, int nMacLen) {
  std::unique_ptr<ECSP_MAC_CTX> ctx;
  if (int rc = StartMac(true, nAlgID, pKey, nKeyLen, &ctx)) return rc;
  if (int rc = UpdateMac(ctx.get(), pIn, nInLen)) return rc;
  return FinishVerify(ctx.get(), pMac, nMacLen);
}

int ECSP_GenerateMACInit(int nAlgID, const unsigned char* pKey, int nKeyLen, ECSP_MAC_CTX** ppCtx) {
  return StagedInit(ppCtx, [&](std::unique_ptr<ECSP_MAC_CTX>* p) { return StartMac(false, nAlgID, pKey, nKeyLen, p); });
}

int ECSP_GenerateMACUpdate(ECSP_MAC_CTX* pCtx, const unsigned char* pIn, int nInLen) {
  return StagedUpdate(pCtx, false, [&](ECSP_MAC_CTX* c) { return UpdateMac(c, pIn, nInLen); });
}

int ECSP_GenerateMACFinal(ECSP_MAC_CTX* pCtx, ByteString* pMac) {
  return StagedFinal(pCtx, false, [&](ECSP_MAC_CTX* c) { return FinishGenerate(c, pMac); });
}

int ECSP_VerifyMACInit(int nAlgID, const unsigned char* pKey, int nKeyLen, ECSP_MAC_CTX** ppCtx) {
  return StagedInit(ppCtx, [&](std::unique_ptr<ECSP_MAC_CTX>* p) { return StartMac(true, nAlgID, pKey, nKeyLen, p); });
}

int ECSP_VerifyMACUpdate(ECSP_MAC_CTX* pCtx, const unsigned char* pIn, int nInLen) {
  return StagedUpdate(pCtx, true, [&](ECSP_MAC_CTX* c) { return UpdateMac(c, pIn, nInLen); });
}

int ECSP_VerifyMACFinal(ECSP_MAC_CTX* pCtx, const unsigned char* pMac, int nMacLen) {
  return StagedFinal(pCtx, true, [&](ECSP_MAC_CTX* c) { return FinishVerify(c, pMac, nMacLen); });
}

void ECSP_MACFree(ECSP_MAC_CTX* pCtx) { delete pCtx; }

int ECSP_GenerateRandom(int nAlgID, unsigned char* pOut, int nLen) {
  if (nAlgID != ecsp::kRandom0 && nAlgID != ecsp::kRandom1 && nAlgID != ecsp::kRandom2) return ECSP_INVALID_ALGORITHM;
  if (nLen < 0 || (!pOut && nLen > 0)) return ECSP_INVALID_DATA_POINTER;
  if (nLen == 0) return ECSP_OK;
  // The generator draws under the core's process-wide lock.
  CoreLock lock;
  if (!lock.held()) {
    std::fputs(kMsgNoCoreLock, stderr);
    return ECSP_FAIL;
  }
  return RAND_bytes_ex(LibCtx(), pOut, static_cast<std::size_t>(nLen), 0) == 1 ? ECSP_OK : ECSP_FAIL;
}
