#pragma once

#include <cstddef>

// Zeroes n bytes at p in a way the optimiser may not drop.
inline void SecureZero(void* p, std::size_t n) {
  volatile unsigned char* q = static_cast<volatile unsigned char*>(p);
  while (n--) *q++ = 0;
}
