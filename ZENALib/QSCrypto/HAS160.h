// HAS160: the Korean 160-bit hash function of TTAS.KO-12.0011/R2.
//
// Little-endian words and length field, 64-byte blocks, five 32-bit chaining
// words and four rounds of twenty steps whose extra message words are XORs of
// four block words. Usable one-shot or staged with pieces of any size.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr std::size_t HAS160_DIGEST_LENGTH = 20;
constexpr std::size_t HAS160_BLOCK_LENGTH = 64;

struct HAS160_CTX {
  std::uint32_t h[5];
  std::uint64_t nBytes;  // total input so far; the standard counts bits mod 2^64
  unsigned char block[HAS160_BLOCK_LENGTH];
  std::size_t nBlockUsed;
};

void HAS160_Init(HAS160_CTX* ctx);
void HAS160_Update(HAS160_CTX* ctx, const unsigned char* p, std::size_t n);
// Writes the 20-byte digest and wipes the context.
void HAS160_Final(HAS160_CTX* ctx, unsigned char out[HAS160_DIGEST_LENGTH]);
void HAS160(const unsigned char* p, std::size_t n, unsigned char out[HAS160_DIGEST_LENGTH]);
