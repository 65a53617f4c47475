#include "ZENALib/QSCrypto/KCDSA.h"

#include <openssl/bn.h>
#include <openssl/rand.h>

#include <cstring>
#include <memory>
#include <new>

#include "base/ByteReader.h"
#include "base/SecureZero.h"

using namespace ecsp_internal;

struct KCDSA_KEY {
  BIGNUM* p = nullptr;
  BIGNUM* q = nullptr;
  BIGNUM* g = nullptr;
  BIGNUM* y = nullptr;
  BIGNUM* x = nullptr;  // null for a public key
  ~KCDSA_KEY() {
    BN_free(p);
    BN_free(q);
    BN_free(g);
    BN_free(y);
    BN_clear_free(x);
  }
};

namespace {

constexpr int kZBytes = 64;  // l = 512 bits for every digest used here
constexpr int kMaxIntegers = 5;

struct BnCtxDeleter {
  void operator()(BN_CTX* c) const { BN_CTX_free(c); }
};
struct BnDeleter {
  void operator()(BIGNUM* b) const { BN_clear_free(b); }
};
struct MontDeleter {
  void operator()(BN_MONT_CTX* m) const { BN_MONT_CTX_free(m); }
};
using BnPtr = std::unique_ptr<BIGNUM, BnDeleter>;
using BnCtxPtr = std::unique_ptr<BN_CTX, BnCtxDeleter>;

// DER length: short form or up to four length octets.
int ReadDerLength(ByteReader* r, std::size_t* pLen) {
  std::uint8_t first;
  if (r->readU8(&first)) return ECSP_ASN1_OPERATION_FAILED;
  if (first < 0x80) {
    *pLen = first;
    return ECSP_OK;
  }
  const int octets = first & 0x7F;
  if (octets == 0 || octets > 4) return ECSP_ASN1_OPERATION_FAILED;
  std::size_t len = 0;
  for (int i = 0; i < octets; ++i) {
    std::uint8_t b;
    if (r->readU8(&b)) return ECSP_ASN1_OPERATION_FAILED;
    len = (len << 8) | b;
  }
  *pLen = len;
  return ECSP_OK;
}

// Reads SEQUENCE { INTEGER ... } with nMin..nMax non-negative integers.
int ReadIntegerSequence(const unsigned char* p, int n, int nMin, int nMax, BnPtr* out, int* pCount) {
  if (!p || n <= 0) return ECSP_INVALID_KEY;
  ByteReader r(p, static_cast<std::size_t>(n));
  std::uint8_t tag;
  std::size_t len;
  if (r.readU8(&tag) || tag != 0x30 || ReadDerLength(&r, &len)) return ECSP_ASN1_OPERATION_FAILED;
  ByteReader seq(nullptr, 0);
  if (r.readReader(len, &seq) || r.remaining() != 0) return ECSP_ASN1_OPERATION_FAILED;
  int count = 0;
  while (seq.remaining() > 0) {
    const unsigned char* body;
    if (count == nMax || seq.readU8(&tag) || tag != 0x02 || ReadDerLength(&seq, &len) || len == 0 ||
        seq.readBytes(len, &body) || (body[0] & 0x80)) {
      return ECSP_ASN1_OPERATION_FAILED;
    }
    out[count].reset(BN_bin2bn(body, static_cast<int>(len), nullptr));
    if (!out[count]) return ECSP_MEMORY_ERROR;
    ++count;
  }
  if (count < nMin) return ECSP_ASN1_OPERATION_FAILED;
  *pCount = count;
  return ECSP_OK;
}

void WriteDerLength(ByteWriter* w, std::size_t len) {
  if (len < 0x80) {
    w->u8(static_cast<std::uint8_t>(len));
    return;
  }
  int octets = 0;
  for (std::size_t t = len; t; t >>= 8) ++octets;
  w->u8(static_cast<std::uint8_t>(0x80 | octets));
  for (int i = octets - 1; i >= 0; --i) w->u8(static_cast<std::uint8_t>(len >> (8 * i)));
}

int WriteIntegerSequence(const BIGNUM* const* items, int count, ByteString* pOut) {
  ByteWriter body;
  for (int i = 0; i < count; ++i) {
    const int n = BN_num_bytes(items[i]);
    ByteString bs;
    if (bs.resize(n + 1) != BS_OK) return ECSP_MEMORY_ERROR;
    BN_bn2binpad(items[i], bs.buffer() + 1, n);
    // A leading zero octet keeps the INTEGER positive when the top bit is set.
    const int skip = n > 0 && (bs.data()[1] & 0x80) ? 0 : 1;
    body.u8(0x02);
    WriteDerLength(&body, static_cast<std::size_t>(n + 1 - skip));
    body.bytes(bs.data() + skip, static_cast<std::size_t>(n + 1 - skip));
    bs.zeroize();
  }
  ByteString content;
  if (body.finish(&content)) return ECSP_MEMORY_ERROR;
  ByteWriter all;
  all.u8(0x30);
  WriteDerLength(&all, static_cast<std::size_t>(content.length()));
  all.bytes(content.data(), static_cast<std::size_t>(content.length()));
  content.zeroize();
  return all.finish(pOut) ? ECSP_MEMORY_ERROR : ECSP_OK;
}

// Hash(big-endian bytes of v, nBytes long), keeping the rightmost nKeep bytes.
bool HashNumber(DigestKind kind, const BIGNUM* v, int nBytes, int nKeep, unsigned char* out) {
  ByteString bs;
  if (bs.resize(nBytes) != BS_OK || BN_bn2binpad(v, bs.buffer(), nBytes) < 0) return false;
  Digest d;
  unsigned char md[kMaxDigestLength];
  if (!d.Init(kind) || !d.Update(bs.data(), static_cast<std::size_t>(nBytes)) || !d.Final(md)) return false;
  std::memcpy(out, md + d.length() - nKeep, static_cast<std::size_t>(nKeep));
  return true;
}

int RLength(DigestKind kind, const KCDSA_KEY* k) {
  const int q = BN_num_bytes(k->q);
  return DigestLength(kind) < q ? DigestLength(kind) : q;
}

// H: the rightmost rLen bytes of the finished message digest.
bool FinishH(Digest* pDigest, int rLen, unsigned char* h) {
  unsigned char md[kMaxDigestLength];
  if (!pDigest->Final(md)) return false;
  std::memcpy(h, md + pDigest->length() - rLen, static_cast<std::size_t>(rLen));
  return true;
}

// E = (R xor H) mod q.
bool ComputeE(const KCDSA_KEY* k, const unsigned char* r, const unsigned char* h, int rLen, BN_CTX* ctx, BIGNUM* e) {
  unsigned char x[kMaxDigestLength];
  for (int i = 0; i < rLen; ++i) x[i] = r[i] ^ h[i];
  return BN_bin2bn(x, rLen, e) && BN_nnmod(e, e, k->q, ctx);
}

int MakeKey(BnPtr* items, int count, KCDSA_KEY** ppKey) {
  KCDSA_KEY* key = new (std::nothrow) KCDSA_KEY;
  if (!key) return ECSP_MEMORY_ERROR;
  key->p = items[0].release();
  key->q = items[1].release();
  key->g = items[2].release();
  key->y = items[3].release();
  if (count == 5) {
    key->x = items[4].release();
    BN_set_flags(key->x, BN_FLG_CONSTTIME);
  }
  *ppKey = key;
  return ECSP_OK;
}

}  // namespace

int KCDSA_ParseKey(const unsigned char* p, int n, KCDSA_KEY** ppKey) {
  BnPtr items[kMaxIntegers];
  int count = 0;
  if (int rc = ReadIntegerSequence(p, n, 4, 5, items, &count)) return rc == ECSP_MEMORY_ERROR ? rc : ECSP_INVALID_KEY;
  // q odd, of 128..512 bits (a tiny q would leave no nonce to draw) and
  // smaller than p; g and y inside (1, p); x inside (0, q).
  BIGNUM *bp = items[0].get(), *bq = items[1].get();
  if (BN_num_bits(bp) < 512 || BN_num_bits(bp) > 4096 || !BN_is_odd(bq) || BN_num_bits(bq) < 128 ||
      BN_num_bits(bq) > 512 || BN_cmp(bq, bp) >= 0 ||
      BN_is_zero(items[2].get()) || BN_is_one(items[2].get()) || BN_cmp(items[2].get(), bp) >= 0 ||
      BN_is_zero(items[3].get()) || BN_cmp(items[3].get(), bp) >= 0 ||
      (count == 5 && (BN_is_zero(items[4].get()) || BN_cmp(items[4].get(), bq) >= 0))) {
    return ECSP_INVALID_KEY;
  }
  return MakeKey(items, count, ppKey);
}

void KCDSA_FreeKey(KCDSA_KEY* pKey) { delete pKey; }

int KCDSA_PBits(const KCDSA_KEY* pKey) { return BN_num_bits(pKey->p); }

bool KCDSA_HasPrivate(const KCDSA_KEY* pKey) { return pKey->x != nullptr; }

int KCDSA_Start(const KCDSA_KEY* pKey, DigestKind kind, Digest* pDigest) {
  unsigned char z[kZBytes];
  BnPtr zn(BN_new());
  // BN_mask_bits refuses a number already shorter than the mask.
  if (!zn || !BN_copy(zn.get(), pKey->y) ||
      (BN_num_bits(zn.get()) > kZBytes * 8 && !BN_mask_bits(zn.get(), kZBytes * 8)) ||
      BN_bn2binpad(zn.get(), z, kZBytes) < 0) {
    return ECSP_MEMORY_ERROR;
  }
  if (!pDigest->Init(kind) || !pDigest->Update(z, kZBytes)) return ECSP_FAIL;
  return ECSP_OK;
}

int KCDSA_FinishSign(const KCDSA_KEY* pKey, Digest* pDigest, const ByteString* pFixedK, ByteString* pSignature) {
  if (!pKey->x) return ECSP_INVALID_KEY;
  BnCtxPtr ctx(BN_CTX_new_ex(LibCtx()));
  BnPtr k(BN_secure_new()), w(BN_new()), e(BN_new()), s(BN_secure_new());
  std::unique_ptr<BN_MONT_CTX, MontDeleter> mont(BN_MONT_CTX_new());
  if (!ctx || !k || !w || !e || !s || !mont || !BN_MONT_CTX_set(mont.get(), pKey->p, ctx.get())) {
    return ECSP_MEMORY_ERROR;
  }
  BN_set_flags(k.get(), BN_FLG_CONSTTIME);
  const int pBytes = BN_num_bytes(pKey->p), qBytes = BN_num_bytes(pKey->q);
  const int rLen = RLength(pDigest->kind(), pKey);
  unsigned char r[kMaxDigestLength], h[kMaxDigestLength];
  if (!FinishH(pDigest, rLen, h)) return ECSP_FAIL;
  for (;;) {
    if (pFixedK) {
      if (!BN_bin2bn(pFixedK->data(), pFixedK->length(), k.get())) return ECSP_MEMORY_ERROR;
      if (BN_is_zero(k.get()) || BN_cmp(k.get(), pKey->q) >= 0) return ECSP_INVALID_DATA;
    } else if (!BN_priv_rand_range_ex(k.get(), pKey->q, 0, ctx.get())) {
      return ECSP_FAIL;
    }
    if (BN_is_zero(k.get())) continue;
    // W = g^k mod p with the secret exponent in constant time.
    if (!BN_mod_exp_mont_consttime(w.get(), pKey->g, k.get(), pKey->p, ctx.get(), mont.get()) ||
        !HashNumber(pDigest->kind(), w.get(), pBytes, rLen, r)) {
      return ECSP_FAIL;
    }
    if (!ComputeE(pKey, r, h, rLen, ctx.get(), e.get()) ||
        !BN_mod_sub(s.get(), k.get(), e.get(), pKey->q, ctx.get()) ||
        !BN_mod_mul(s.get(), s.get(), pKey->x, pKey->q, ctx.get())) {
      return ECSP_FAIL;
    }
    if (!BN_is_zero(s.get()) || pFixedK) break;
  }
  if (pSignature->resize(rLen + qBytes) != BS_OK) return ECSP_MEMORY_ERROR;
  std::memcpy(pSignature->buffer(), r, static_cast<std::size_t>(rLen));
  BN_bn2binpad(s.get(), pSignature->buffer() + rLen, qBytes);
  return ECSP_OK;
}

int KCDSA_FinishVerify(const KCDSA_KEY* pKey, Digest* pDigest, const unsigned char* pSig, int nSigLen) {
  const int pBytes = BN_num_bytes(pKey->p), qBytes = BN_num_bytes(pKey->q);
  const int rLen = RLength(pDigest->kind(), pKey);
  if (!pSig || nSigLen != rLen + qBytes) return ECSP_INVALID_SIGNATURE;
  BnCtxPtr ctx(BN_CTX_new_ex(LibCtx()));
  BnPtr s(BN_bin2bn(pSig + rLen, qBytes, nullptr)), e(BN_new()), w(BN_new()), t(BN_new());
  if (!ctx || !s || !e || !w || !t) return ECSP_MEMORY_ERROR;
  if (BN_is_zero(s.get()) || BN_cmp(s.get(), pKey->q) >= 0) return ECSP_VERIFY_FAIL;
  unsigned char h[kMaxDigestLength];
  if (!FinishH(pDigest, rLen, h) || !ComputeE(pKey, pSig, h, rLen, ctx.get(), e.get())) return ECSP_FAIL;
  // W' = y^S g^E mod p (public values: no constant-time need).
  if (!BN_mod_exp(w.get(), pKey->y, s.get(), pKey->p, ctx.get()) ||
      !BN_mod_exp(t.get(), pKey->g, e.get(), pKey->p, ctx.get()) ||
      !BN_mod_mul(w.get(), w.get(), t.get(), pKey->p, ctx.get())) {
    return ECSP_FAIL;
  }
  unsigned char r[kMaxDigestLength];
  if (!HashNumber(pDigest->kind(), w.get(), pBytes, rLen, r)) return ECSP_FAIL;
  return CRYPTO_memcmp(r, pSig, static_cast<std::size_t>(rLen)) == 0 ? ECSP_OK : ECSP_VERIFY_FAIL;
}

namespace {

// q of 160 bits, then p = 2qJ + 1 of nPBits bits, then g = h^(2J) mod p.
int GenerateDomain(int nPBits, BN_CTX* ctx, BnPtr* pqg) {
  BnPtr p(BN_new()), q(BN_new()), g(BN_new()), j(BN_new()), h(BN_new()), two_q(BN_new());
  if (!p || !q || !g || !j || !h || !two_q) return ECSP_MEMORY_ERROR;
  if (!BN_generate_prime_ex2(q.get(), 160, 0, nullptr, nullptr, nullptr, ctx) || !BN_lshift1(two_q.get(), q.get())) {
    return ECSP_FAIL;
  }
  const int jBits = nPBits - 160 - 1;
  for (;;) {
    if (!BN_rand_ex(j.get(), jBits, BN_RAND_TOP_ONE, BN_RAND_BOTTOM_ANY, 0, ctx) ||
        !BN_mul(p.get(), two_q.get(), j.get(), ctx) || !BN_add_word(p.get(), 1)) {
      return ECSP_FAIL;
    }
    if (BN_num_bits(p.get()) != nPBits) continue;
    const int prime = BN_check_prime(p.get(), ctx, nullptr);
    if (prime < 0) return ECSP_FAIL;
    if (prime) break;
  }
  BnPtr twoJ(BN_new());
  if (!twoJ || !BN_lshift1(twoJ.get(), j.get())) return ECSP_MEMORY_ERROR;
  do {
    if (!BN_rand_range_ex(h.get(), p.get(), 0, ctx) || !BN_mod_exp(g.get(), h.get(), twoJ.get(), p.get(), ctx)) {
      return ECSP_FAIL;
    }
  } while (BN_is_zero(g.get()) || BN_is_one(g.get()));
  pqg[0] = std::move(p);
  pqg[1] = std::move(q);
  pqg[2] = std::move(g);
  return ECSP_OK;
}

}  // namespace

int KCDSA_GenerateKeyPair(int nPBits, const ByteString& bsDomain, ByteString* pPrivateKey, ByteString* pPublicKey) {
  BnCtxPtr ctx(BN_CTX_new_ex(LibCtx()));
  if (!ctx) return ECSP_MEMORY_ERROR;
  BnPtr items[kMaxIntegers];
  if (bsDomain.length() > 0) {
    int count = 0;
    if (ReadIntegerSequence(bsDomain.data(), bsDomain.length(), 3, 3, items, &count)) return ECSP_INVALID_KEY;
    // The same bounds as a parsed key: a tiny q would leave no x to draw.
    const int qBits = BN_num_bits(items[1].get());
    if (BN_num_bits(items[0].get()) != nPBits || qBits < 128 || qBits > 512 ||
        BN_cmp(items[1].get(), items[0].get()) >= 0 || BN_is_zero(items[2].get()) || BN_is_one(items[2].get())) {
      return ECSP_INVALID_KEY;
    }
  } else if (int rc = GenerateDomain(nPBits, ctx.get(), items)) {
    return rc;
  }
  // x in [1, q-1], y = g^(x^-1 mod q) mod p.
  items[3].reset(BN_new());
  items[4].reset(BN_secure_new());
  BnPtr xinv(BN_secure_new());
  if (!items[3] || !items[4] || !xinv) return ECSP_MEMORY_ERROR;
  BN_set_flags(items[4].get(), BN_FLG_CONSTTIME);
  BN_set_flags(xinv.get(), BN_FLG_CONSTTIME);
  do {
    if (!BN_priv_rand_range_ex(items[4].get(), items[1].get(), 0, ctx.get())) return ECSP_FAIL;
  } while (BN_is_zero(items[4].get()));
  if (!BN_mod_inverse(xinv.get(), items[4].get(), items[1].get(), ctx.get()) ||
      !BN_mod_exp_mont_consttime(items[3].get(), items[2].get(), xinv.get(), items[0].get(), ctx.get(), nullptr)) {
    return ECSP_INVALID_KEY;  // q not prime: x has no inverse
  }
  const BIGNUM* all[kMaxIntegers] = {items[0].get(), items[1].get(), items[2].get(), items[3].get(), items[4].get()};
  if (int rc = WriteIntegerSequence(all, 5, pPrivateKey)) return rc;
  return WriteIntegerSequence(all, 4, pPublicKey);
}
