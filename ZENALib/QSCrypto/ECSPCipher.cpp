// Encryption of the core: block ciphers through EVP, RSA handed to the
// public-key code, and the key object.
#include <openssl/core_names.h>

#include <cstring>
#include <memory>
#include <utility>

#include "ZENALib/QSCrypto/ECSPInternal.h"
#include "base/SecureZero.h"

using namespace ecsp_internal;

ECSP_KEY::~ECSP_KEY() {
  bsKey.zeroize();
  FreePKey(pPKey);
}

namespace {

constexpr int kMaxBlock = 16;

bool IsStreamMode(int nMode) { return nMode == ECSP_MODE_CFB || nMode == ECSP_MODE_OFB; }

bool ValidPadding(int nPadding) {
  return nPadding == ECSP_PAD_NONE || nPadding == ECSP_PAD_ZERO || nPadding == ECSP_PAD_PKCS ||
         nPadding == ECSP_PAD_ISO9797_2;
}

struct CipherCtxDeleter {
  void operator()(EVP_CIPHER_CTX* p) const { EVP_CIPHER_CTX_free(p); }  // also wipes the key schedule
};
using CipherCtxPtr = std::unique_ptr<EVP_CIPHER_CTX, CipherCtxDeleter>;

int CheckSymmetricKey(int nAlgID, int nKeyLen) {
  const int want = CipherKeyLength(nAlgID);
  if (want < 0) return ECSP_INVALID_ALGORITHM;
  // RC2 takes 1..128 key bytes (RFC 2268); the others one fixed length.
  const bool ok = want == 0 ? nKeyLen >= 1 && nKeyLen <= 128 : nKeyLen == want;
  return ok ? ECSP_OK : ECSP_INVALID_KEY;
}

// Keys a context for one call.
int StartCipher(int nAlgID, const EVP_CIPHER* cipher, bool bEncrypt, int nPadding, bool bStream,
                const unsigned char* pKey, int nKeyLen, const unsigned char* pIV, CipherCtxPtr* pCtx) {
  CipherCtxPtr ctx(EVP_CIPHER_CTX_new());
  if (!ctx) return ECSP_MEMORY_ERROR;
  const int enc = bEncrypt ? 1 : 0;
  int ok;
  if (const int bits = RC2EffectiveBits(nAlgID)) {
    std::size_t keyLen = static_cast<std::size_t>(nKeyLen), effective = static_cast<std::size_t>(bits);
    const OSSL_PARAM params[] = {OSSL_PARAM_construct_size_t(OSSL_CIPHER_PARAM_KEYLEN, &keyLen),
                                 OSSL_PARAM_construct_size_t(OSSL_CIPHER_PARAM_RC2_KEYBITS, &effective),
                                 OSSL_PARAM_construct_end()};
    ok = EVP_CipherInit_ex2(ctx.get(), cipher, nullptr, nullptr, enc, params) &&
         EVP_CipherInit_ex2(ctx.get(), nullptr, pKey, pIV, enc, nullptr);
  } else {
    ok = EVP_CipherInit_ex2(ctx.get(), cipher, pKey, pIV, enc, nullptr);
  }
  if (!ok) return ECSP_INVALID_KEY;
  EVP_CIPHER_CTX_set_padding(ctx.get(), nPadding == ECSP_PAD_PKCS && !bStream ? 1 : 0);
  *pCtx = std::move(ctx);
  return ECSP_OK;
}

int SymmetricCrypt(bool bEncrypt, int nAlgID, int nMode, int nPadding, const unsigned char* pKey, int nKeyLen,
                   const unsigned char* pIV, int nIVLen, const unsigned char* pIn, int nInLen, unsigned char* pOut,
                   int* pnOutLen) {
  if (int rc = CheckSymmetricKey(nAlgID, nKeyLen)) return rc;
  const EVP_CIPHER* cipher = Cipher(nAlgID, nMode);
  if (!cipher) return nMode < ECSP_MODE_ECB || nMode > ECSP_MODE_OFB ? ECSP_INVALID_MODE : ECSP_FAIL;
  if (!ValidPadding(nPadding)) return ECSP_INVALID_MODE;
  const int bs = CipherBlockLength(nAlgID);
  if (nMode != ECSP_MODE_ECB && (!pIV || nIVLen != bs)) return ECSP_INVALID_INIT_VECTOR;
  const bool bStream = IsStreamMode(nMode);
  const int pad = bStream ? ECSP_PAD_NONE : nPadding;

  // The room needed, checked before any byte is written.
  int need = nInLen;
  if (bEncrypt && !bStream && pad == ECSP_PAD_NONE && nInLen % bs) return ECSP_INVALID_DATA;
  if (bEncrypt && pad == ECSP_PAD_ZERO) need = (nInLen + bs - 1) / bs * bs;
  if (bEncrypt && (pad == ECSP_PAD_PKCS || pad == ECSP_PAD_ISO9797_2)) need = (nInLen / bs + 1) * bs;
  if (!bEncrypt && !bStream) {
    if (nInLen % bs) return pad == ECSP_PAD_NONE ? ECSP_INVALID_DATA : ECSP_INVALID_ENCRYPTED_DATA;
    if (nInLen == 0 && (pad == ECSP_PAD_PKCS || pad == ECSP_PAD_ISO9797_2)) return ECSP_INVALID_ENCRYPTED_DATA;
    if (pad == ECSP_PAD_PKCS) need = nInLen + bs;  // EVP's room rule for a padded decryption
  }
  if (*pnOutLen < need) return ECSP_NOT_ENOUGH_BUFFER;
  unsigned char empty[kMaxBlock];
  if (!pOut) pOut = empty;  // no room was needed: nothing will be written

  CipherCtxPtr owner;
  if (int rc = StartCipher(nAlgID, cipher, bEncrypt, pad, bStream, pKey, nKeyLen, pIV, &owner)) return rc;
  EVP_CIPHER_CTX* ctx = owner.get();
  int n1 = 0, n2 = 0;
  // Zero and ISO padding are added here: whole blocks first, then the last
  // partial block completed in a stack buffer.
  const bool bOwnPad = bEncrypt && (pad == ECSP_PAD_ZERO || pad == ECSP_PAD_ISO9797_2);
  const int body = bOwnPad ? nInLen / bs * bs : nInLen;
  if (body > 0 && EVP_CipherUpdate(ctx, pOut, &n1, pIn, body) != 1) return ECSP_FAIL;
  if (bOwnPad) {
    const int rest = nInLen - body;
    if (rest > 0 || pad == ECSP_PAD_ISO9797_2) {
      unsigned char last[kMaxBlock] = {};
      std::memcpy(last, pIn + body, static_cast<std::size_t>(rest));
      if (pad == ECSP_PAD_ISO9797_2) last[rest] = 0x80;
      const int ok = EVP_CipherUpdate(ctx, pOut + n1, &n2, last, bs);
      SecureZero(last, sizeof(last));
      if (ok != 1) return ECSP_FAIL;
    }
  } else if (EVP_CipherFinal_ex(ctx, pOut + n1, &n2) != 1) {
    SecureZero(pOut, static_cast<std::size_t>(n1));
    return ECSP_INVALID_ENCRYPTED_DATA;  // only a padded decryption can fail here
  }
  int total = n1 + n2;
  if (!bEncrypt && pad == ECSP_PAD_ISO9797_2) {
    // Strip zeros back to the 0x80 marker, never past the last block.
    int i = total - 1;
    while (i > total - bs && pOut[i] == 0) --i;
    if (pOut[i] != 0x80) return ECSP_INVALID_ENCRYPTED_DATA;
    total = i;
  }
  *pnOutLen = total;
  return ECSP_OK;
}

int Crypt(bool bEncrypt, int nAlgID, int nMode, int nPadding, const ECSP_KEY* pKey, const unsigned char* pIV,
          int nIVLen, const unsigned char* pIn, int nInLen, unsigned char* pOut, int* pnOutLen) {
  if (!pKey) return ECSP_INVALID_KEY_POINTER;
  if (!pnOutLen || (!pOut && *pnOutLen > 0) || nInLen < 0 || (!pIn && nInLen > 0)) return ECSP_INVALID_DATA_POINTER;
  if (IsRsaCipher(nAlgID)) {
    // A hand-built key object is parsed for this call only.
    ECSP_PKEY* pParsed = pKey->pPKey;
    if (!pParsed) {
      if (int rc = ParsePKey(nAlgID, pKey->pbKey, pKey->nKeyLen, !bEncrypt, &pParsed)) return rc;
    }
    const int rc = bEncrypt ? RsaEncrypt(nAlgID, pParsed, pIn, nInLen, pOut, pnOutLen)
                            : RsaDecrypt(nAlgID, pParsed, pIn, nInLen, pOut, pnOutLen);
    if (pParsed != pKey->pPKey) FreePKey(pParsed);
    return rc;
  }
  if (!pKey->pbKey) return ECSP_INVALID_KEY_POINTER;
  return SymmetricCrypt(bEncrypt, nAlgID, nMode, nPadding, pKey->pbKey, pKey->nKeyLen, pIV, nIVLen, pIn, nInLen,
                        pOut, pnOutLen);
}

}  // namespace

int ECSP_GenerateKey(int nAlgID, const unsigned char* pbKey, int nKeyLen, ECSP_KEY* pKey) {
  if (!pKey) return ECSP_INVALID_KEY_POINTER;
  if (!pbKey || nKeyLen <= 0) return ECSP_INVALID_KEY;
  pKey->nAlgID = nAlgID;
  if (IsRsaCipher(nAlgID)) {
    FreePKey(pKey->pPKey);
    pKey->pPKey = nullptr;
    // Encryption keys are public far more often than not.
    return ParsePKey(nAlgID, pbKey, nKeyLen, false, &pKey->pPKey);
  }
  if (int rc = CheckSymmetricKey(nAlgID, nKeyLen)) return rc;
  pKey->bsKey.zeroize();
  if (pKey->bsKey.setData(pbKey, nKeyLen) != BS_OK) return ECSP_MEMORY_ERROR;
  pKey->pbKey = pKey->bsKey.data();
  pKey->nKeyLen = nKeyLen;
  return ECSP_OK;
}

int ECSP_GetOutputLength(int nAlgID, int nMode, int nPadding, int nInLen, bool bEncrypt) {
  if (nInLen < 0 || nInLen > INT32_MAX - 2 * kMaxBlock) return -1;
  if (IsRsaCipher(nAlgID)) return nInLen > 512 ? nInLen : 512;  // a 4096-bit block at most
  const int bs = CipherBlockLength(nAlgID);
  if (bs == 0) return nInLen;
  if (IsStreamMode(nMode)) return nInLen;
  if (!bEncrypt) return nPadding == ECSP_PAD_PKCS ? nInLen + bs : nInLen;
  if (nPadding == ECSP_PAD_PKCS || nPadding == ECSP_PAD_ISO9797_2) return (nInLen / bs + 1) * bs;
  if (nPadding == ECSP_PAD_ZERO) return (nInLen + bs - 1) / bs * bs;
  return nInLen;
}

int ECSP_EncryptData(int nAlgID, int nMode, int nPadding, const ECSP_KEY* pKey, const unsigned char* pIV,
                     int nIVLen, const unsigned char* pIn, int nInLen, unsigned char* pOut, int* pnOutLen) {
  return Crypt(true, nAlgID, nMode, nPadding, pKey, pIV, nIVLen, pIn, nInLen, pOut, pnOutLen);
}

int ECSP_DecryptData(int nAlgID, int nMode, int nPadding, const ECSP_KEY* pKey, const unsigned char* pIV,
                     int nIVLen, const unsigned char* pIn, int nInLen, unsigned char* pOut, int* pnOutLen) {
  return Crypt(false, nAlgID, nMode, nPadding, pKey, pIV, nIVLen, pIn, nInLen, pOut, pnOutLen);
}
