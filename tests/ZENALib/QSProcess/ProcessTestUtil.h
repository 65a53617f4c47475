// Helpers of the processing tests: vector files of tests/data/process and
// trace matching.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/ZENALib/QSCrypto/CryptoTestUtil.h"
#include "tests/support/TestUtil.h"

namespace processtest {

// The records of tests/data/process/<name>, never none.
inline std::vector<qvatest::VectorRecord> Vectors(const std::string& name) {
  auto records = qvatest::ReadVectors(qvatest::DataPath("process/" + name));
  EXPECT_FALSE(records.empty()) << name;
  return records;
}

// Hex with blanks allowed between groups.
inline ByteString HexBs(std::string s) {
  s.erase(std::remove(s.begin(), s.end(), ' '), s.end());
  return qvatest::Hex(s);
}

inline int Num(const qvatest::VectorRecord& r, const char* name) {
  auto it = r.find(name);
  return it == r.end() || it->second.empty() ? 0 : std::stoi(it->second);
}

inline std::string Get(const qvatest::VectorRecord& r, const char* name) {
  auto it = r.find(name);
  return it == r.end() ? std::string() : it->second;
}

}  // namespace processtest
