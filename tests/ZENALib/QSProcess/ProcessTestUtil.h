// Helpers of the processing tests: vector files of tests/data/process, trace
// matching and the KCDSA example domain.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ZENALib/ASN1/ASN1Integer.h"
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

inline ByteString DerInt(const std::string& hex) {
  ASN1Integer i;
  i.setInteger(HexBs(hex), 0);
  return i.toASN1Object();
}

// SEQUENCE { p, q, g } of the TTAK.KO-12.0001 1024/160 example.
inline ByteString TtakDomain() {
  for (auto r : cryptotest::Vectors("kcdsa_ttak.txt")) {
    if (r["Sizes"] != "A1024B160HAS160") continue;
    ByteString body = DerInt(r["P"]);
    body += DerInt(r["Q"]);
    body += DerInt(r["G"]);
    ByteString seq("\x30\x82\x00\x00", 4);
    seq.setAt(2, static_cast<char>(body.length() >> 8));
    seq.setAt(3, static_cast<char>(body.length() & 0xFF));
    seq += body;
    return seq;
  }
  ADD_FAILURE() << "no 1024-bit KCDSA domain";
  return ByteString();
}

}  // namespace processtest
