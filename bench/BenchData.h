// Files of the source tree's tests/data, read for the benchmarks.
#pragma once

#include <fstream>
#include <sstream>
#include <string>

#include "base/ByteString.h"

// The bytes of QVA_SOURCE_DIR/relative, empty when it cannot be read.
inline ByteString ReadSourceFile(const char* relative) {
  std::ifstream in(std::string(QVA_SOURCE_DIR) + relative, std::ios::binary);
  std::ostringstream ss;
  ss << in.rdbuf();
  const std::string s = ss.str();
  return ByteString(s.data(), static_cast<int>(s.size()));
}
