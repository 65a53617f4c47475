// File and hex helpers shared by the toolkit examples.
#pragma once
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "base/ByteString.h"

namespace example {

// The whole file, or an empty string when it cannot be read.
inline ByteString ReadFile(const char* path) {
  std::ifstream in(path, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return ByteString(bytes.data(), static_cast<int>(bytes.size()));
}

inline bool WriteFile(const char* path, const ByteString& data) {
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(data.data()), data.length());
  return static_cast<bool>(out);
}

inline void PrintHex(const char* label, const ByteString& bytes) {
  std::printf("%s: ", label);
  for (int i = 0; i < bytes.length(); ++i) std::printf("%02X", bytes.data()[i]);
  std::printf("\n");
}

}  // namespace example
