// Digests of the core, one-shot and staged.
#include <new>

#include "ZENALib/QSCrypto/ECSPInternal.h"

using namespace ecsp_internal;

struct ECSP_DIGEST_CTX {
  Digest digest;
};

namespace {

// The digest start of the core: MD2 and MD4 have a core code but no digest.
int StartDigest(int nAlgID, Digest* pDigest) {
  DigestKind kind;
  if (!SelectDigest(nAlgID, &kind)) return ECSP_INVALID_ALGORITHM;
  return pDigest->Init(kind) ? ECSP_OK : ECSP_FAIL;
}

int FinishDigest(Digest* pDigest, ByteString* pOut) {
  unsigned char md[kMaxDigestLength];
  if (!pDigest->Final(md)) return ECSP_FAIL;
  return pOut->setData(md, pDigest->length()) == BS_OK ? ECSP_OK : ECSP_MEMORY_ERROR;
}

}  // namespace

int ECSP_DigestData(int nAlgID, const unsigned char* pIn, int nInLen, ByteString* pDigest) {
  if (!pDigest || nInLen < 0 || (!pIn && nInLen > 0)) return ECSP_INVALID_DATA_POINTER;
  DigestKind kind;
  if (!SelectDigest(nAlgID, &kind)) return ECSP_INVALID_ALGORITHM;
  unsigned char md[kMaxDigestLength];
  const std::size_t n = static_cast<std::size_t>(nInLen);
  // One-shot calls go straight to the primitive: no context object is kept.
  if (kind == kDigestHAS160) {
    HAS160(pIn, n, md);
  } else {
    const EVP_MD* evp = Md(kind);
    if (!evp || EVP_Digest(pIn, n, md, nullptr, evp, nullptr) != 1) return ECSP_FAIL;
  }
  return pDigest->setData(md, DigestLength(kind)) == BS_OK ? ECSP_OK : ECSP_MEMORY_ERROR;
}

ECSP_DIGEST_CTX* ECSP_DigestDataNew() { return new (std::nothrow) ECSP_DIGEST_CTX; }

void ECSP_DigestDataFree(ECSP_DIGEST_CTX* pCtx) { delete pCtx; }

int ECSP_DigestDataInit(int nAlgID, ECSP_DIGEST_CTX* pCtx) {
  if (!pCtx) return ECSP_STAGE_INIT + ECSP_INVALID_CLASS;
  const int rc = StartDigest(nAlgID, &pCtx->digest);
  return rc == ECSP_OK ? ECSP_OK : ECSP_STAGE_INIT + rc;
}

int ECSP_DigestDataUpdate(ECSP_DIGEST_CTX* pCtx, const unsigned char* pIn, int nInLen) {
  if (!pCtx) return ECSP_STAGE_UPDATE + ECSP_INVALID_CLASS;
  if (nInLen < 0 || (!pIn && nInLen > 0)) return ECSP_STAGE_UPDATE + ECSP_INVALID_DATA_POINTER;
  return pCtx->digest.Update(pIn, static_cast<std::size_t>(nInLen)) ? ECSP_OK
                                                                      : ECSP_STAGE_UPDATE + ECSP_FAIL;
}

int ECSP_DigestDataFinal(ECSP_DIGEST_CTX* pCtx, ByteString* pDigest) {
  if (!pCtx) return ECSP_STAGE_FINAL + ECSP_INVALID_CLASS;
  if (!pDigest) return ECSP_STAGE_FINAL + ECSP_INVALID_DATA_POINTER;
  const int rc = FinishDigest(&pCtx->digest, pDigest);
  return rc == ECSP_OK ? ECSP_OK : ECSP_STAGE_FINAL + rc;
}
