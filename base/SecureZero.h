#pragma once

#include <cstddef>
#include <cstring>

// Zeroes n bytes at p in a way the optimiser may not drop.
inline void SecureZero(void* p, std::size_t n) {
#if defined(__GNUC__) || defined(__clang__)
  // A plain memset, then a barrier that tells the compiler the zeros are read.
  if (n) std::memset(p, 0, n);
  __asm__ __volatile__("" : : "r"(p) : "memory");
#else
  volatile unsigned char* q = static_cast<volatile unsigned char*>(p);
  while (n--) *q++ = 0;
#endif
}
