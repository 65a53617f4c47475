#include "ZENALib/QSCrypto/HAS160.h"

#include <cstring>

#include "base/SecureZero.h"

namespace {

inline std::uint32_t Rotl(std::uint32_t x, int s) { return (x << s) | (x >> (32 - s)); }

inline std::uint32_t LoadLE(const unsigned char* p) {
  std::uint32_t v;
  std::memcpy(&v, p, 4);
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
  v = __builtin_bswap32(v);
#endif
  return v;
}

inline void StoreLE(unsigned char* p, std::uint32_t v) {
  p[0] = static_cast<unsigned char>(v);
  p[1] = static_cast<unsigned char>(v >> 8);
  p[2] = static_cast<unsigned char>(v >> 16);
  p[3] = static_cast<unsigned char>(v >> 24);
}

inline std::uint32_t F1(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return z ^ (x & (y ^ z)); }
inline std::uint32_t F2(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return x ^ y ^ z; }
inline std::uint32_t F3(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return y ^ (x | ~z); }

// One step: the five working words rotate their roles instead of moving, so
// the caller names them in the shifted order for the next step.
#define HAS160_STEP(F, a, b, c, d, e, x, s1, s2, k) \
  do {                                              \
    e += (x) + (k) + F(b, c, d);                    \
    e += Rotl(a, s1);                               \
    b = Rotl(b, s2);                                \
  } while (0)

// Twenty steps of one round. W0..W19 are the message words in the round's
// order (the standard's l(j) table); the left rotations of A are the same
// in every round, the rotation of B is the round's.
#define HAS160_ROUND(F, k, s2, W0, W1, W2, W3, W4, W5, W6, W7, W8, W9, W10, W11, W12, W13, W14, W15, W16, \
                     W17, W18, W19)                                                                      \
  HAS160_STEP(F, a, b, c, d, e, W0, 5, s2, k);                                                           \
  HAS160_STEP(F, e, a, b, c, d, W1, 11, s2, k);                                                          \
  HAS160_STEP(F, d, e, a, b, c, W2, 7, s2, k);                                                           \
  HAS160_STEP(F, c, d, e, a, b, W3, 15, s2, k);                                                          \
  HAS160_STEP(F, b, c, d, e, a, W4, 6, s2, k);                                                           \
  HAS160_STEP(F, a, b, c, d, e, W5, 13, s2, k);                                                          \
  HAS160_STEP(F, e, a, b, c, d, W6, 8, s2, k);                                                           \
  HAS160_STEP(F, d, e, a, b, c, W7, 14, s2, k);                                                          \
  HAS160_STEP(F, c, d, e, a, b, W8, 7, s2, k);                                                           \
  HAS160_STEP(F, b, c, d, e, a, W9, 12, s2, k);                                                          \
  HAS160_STEP(F, a, b, c, d, e, W10, 9, s2, k);                                                          \
  HAS160_STEP(F, e, a, b, c, d, W11, 11, s2, k);                                                         \
  HAS160_STEP(F, d, e, a, b, c, W12, 8, s2, k);                                                          \
  HAS160_STEP(F, c, d, e, a, b, W13, 15, s2, k);                                                         \
  HAS160_STEP(F, b, c, d, e, a, W14, 6, s2, k);                                                          \
  HAS160_STEP(F, a, b, c, d, e, W15, 12, s2, k);                                                         \
  HAS160_STEP(F, e, a, b, c, d, W16, 9, s2, k);                                                          \
  HAS160_STEP(F, d, e, a, b, c, W17, 14, s2, k);                                                         \
  HAS160_STEP(F, c, d, e, a, b, W18, 5, s2, k);                                                          \
  HAS160_STEP(F, b, c, d, e, a, W19, 13, s2, k)

void Compress(std::uint32_t h[5], const unsigned char* p, std::size_t nBlocks) {
  while (nBlocks--) {
    std::uint32_t x[16];
    for (int i = 0; i < 16; ++i) x[i] = LoadLE(p + 4 * i);
    p += HAS160_BLOCK_LENGTH;
    std::uint32_t a = h[0], b = h[1], c = h[2], d = h[3], e = h[4];
    std::uint32_t t16, t17, t18, t19;

    t16 = x[0] ^ x[1] ^ x[2] ^ x[3];
    t17 = x[4] ^ x[5] ^ x[6] ^ x[7];
    t18 = x[8] ^ x[9] ^ x[10] ^ x[11];
    t19 = x[12] ^ x[13] ^ x[14] ^ x[15];
    HAS160_ROUND(F1, 0x00000000u, 10, t18, x[0], x[1], x[2], x[3], t19, x[4], x[5], x[6], x[7], t16, x[8], x[9],
                 x[10], x[11], t17, x[12], x[13], x[14], x[15]);

    t16 = x[3] ^ x[6] ^ x[9] ^ x[12];
    t17 = x[15] ^ x[2] ^ x[5] ^ x[8];
    t18 = x[11] ^ x[14] ^ x[1] ^ x[4];
    t19 = x[7] ^ x[10] ^ x[13] ^ x[0];
    HAS160_ROUND(F2, 0x5A827999u, 17, t18, x[3], x[6], x[9], x[12], t19, x[15], x[2], x[5], x[8], t16, x[11], x[14],
                 x[1], x[4], t17, x[7], x[10], x[13], x[0]);

    t16 = x[12] ^ x[5] ^ x[14] ^ x[7];
    t17 = x[0] ^ x[9] ^ x[2] ^ x[11];
    t18 = x[4] ^ x[13] ^ x[6] ^ x[15];
    t19 = x[8] ^ x[1] ^ x[10] ^ x[3];
    HAS160_ROUND(F3, 0x6ED9EBA1u, 25, t18, x[12], x[5], x[14], x[7], t19, x[0], x[9], x[2], x[11], t16, x[4], x[13],
                 x[6], x[15], t17, x[8], x[1], x[10], x[3]);

    t16 = x[7] ^ x[2] ^ x[13] ^ x[8];
    t17 = x[3] ^ x[14] ^ x[9] ^ x[4];
    t18 = x[15] ^ x[10] ^ x[5] ^ x[0];
    t19 = x[11] ^ x[6] ^ x[1] ^ x[12];
    HAS160_ROUND(F2, 0x8F1BBCDCu, 30, t18, x[7], x[2], x[13], x[8], t19, x[3], x[14], x[9], x[4], t16, x[15], x[10],
                 x[5], x[0], t17, x[11], x[6], x[1], x[12]);

    h[0] += a;
    h[1] += b;
    h[2] += c;
    h[3] += d;
    h[4] += e;
  }
}

}  // namespace

void HAS160_Init(HAS160_CTX* ctx) {
  ctx->h[0] = 0x67452301u;
  ctx->h[1] = 0xEFCDAB89u;
  ctx->h[2] = 0x98BADCFEu;
  ctx->h[3] = 0x10325476u;
  ctx->h[4] = 0xC3D2E1F0u;
  ctx->nBytes = 0;
  ctx->nBlockUsed = 0;
}

void HAS160_Update(HAS160_CTX* ctx, const unsigned char* p, std::size_t n) {
  if (n == 0) return;
  ctx->nBytes += n;
  if (ctx->nBlockUsed) {
    const std::size_t take = HAS160_BLOCK_LENGTH - ctx->nBlockUsed < n ? HAS160_BLOCK_LENGTH - ctx->nBlockUsed : n;
    std::memcpy(ctx->block + ctx->nBlockUsed, p, take);
    ctx->nBlockUsed += take;
    p += take;
    n -= take;
    if (ctx->nBlockUsed < HAS160_BLOCK_LENGTH) return;
    Compress(ctx->h, ctx->block, 1);
    ctx->nBlockUsed = 0;
  }
  const std::size_t whole = n / HAS160_BLOCK_LENGTH;
  if (whole) {
    Compress(ctx->h, p, whole);
    p += whole * HAS160_BLOCK_LENGTH;
    n -= whole * HAS160_BLOCK_LENGTH;
  }
  if (n) {
    std::memcpy(ctx->block, p, n);
    ctx->nBlockUsed = n;
  }
}

void HAS160_Final(HAS160_CTX* ctx, unsigned char out[HAS160_DIGEST_LENGTH]) {
  // MD-style padding: 0x80, zeros, then the bit length as a little-endian
  // 64-bit number in the last eight bytes of the final block.
  const std::uint64_t bits = ctx->nBytes << 3;
  std::size_t used = ctx->nBlockUsed;
  ctx->block[used++] = 0x80;
  if (used > HAS160_BLOCK_LENGTH - 8) {
    std::memset(ctx->block + used, 0, HAS160_BLOCK_LENGTH - used);
    Compress(ctx->h, ctx->block, 1);
    used = 0;
  }
  std::memset(ctx->block + used, 0, HAS160_BLOCK_LENGTH - 8 - used);
  for (int i = 0; i < 8; ++i) ctx->block[HAS160_BLOCK_LENGTH - 8 + i] = static_cast<unsigned char>(bits >> (8 * i));
  Compress(ctx->h, ctx->block, 1);
  for (int i = 0; i < 5; ++i) StoreLE(out + 4 * i, ctx->h[i]);
  SecureZero(ctx, sizeof(*ctx));
}

void HAS160(const unsigned char* p, std::size_t n, unsigned char out[HAS160_DIGEST_LENGTH]) {
  HAS160_CTX ctx;
  HAS160_Init(&ctx);
  HAS160_Update(&ctx, p, n);
  HAS160_Final(&ctx, out);
}
