// Helpers of the crypto tests: vector files, trace matching, one door to
// QSEncrypt and the openssl/rhash CLI.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <regex>
#include <string>
#include <vector>

#include "ZENALib/QSCrypto/QSEncrypt.h"
#include "base/ByteString.h"
#include "tests/support/TestUtil.h"

namespace cryptotest {

// The records of tests/data/crypto/<name>, never none.
inline std::vector<qvatest::VectorRecord> Vectors(const std::string& name) {
  auto records = qvatest::ReadVectors(qvatest::DataPath("crypto/" + name));
  EXPECT_FALSE(records.empty()) << name;
  return records;
}

// A value written in double quotes (to keep its blanks) without them.
inline std::string Unquote(const std::string& s) {
  return s.size() >= 2 && s.front() == '"' && s.back() == '"' ? s.substr(1, s.size() - 2) : s;
}

// A service trace line "[<file>:<line>]<tail>" with the line number left
// open; the tail is matched exactly.
inline ::testing::AssertionResult TraceTail(const ByteString& trace, const std::string& file, const std::string& tail) {
  const std::string head = "[" + file + ":", text = qvatest::Str(trace);
  const auto close = text.find(']');
  if (text.rfind(head, 0) == 0 && close != std::string::npos &&
      std::regex_match(text.substr(head.size(), close - head.size()), std::regex("[0-9]+")) &&
      text.substr(close + 1) == tail) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "trace \"" << text << "\" is not " << head << "<n>]" << tail;
}

// One call of the QSEncrypt method named op (EncryptData, DecryptData and
// their _NoGenKey forms).
inline int Crypt(QSEncrypt& e, const std::string& op, int alg, int mode, int pad, const ByteString& key,
                 const ByteString& iv, const ByteString& in, ByteString& out) {
  if (op == "EncryptData") return e.EncryptData(alg, mode, pad, key, iv, in, out);
  if (op == "DecryptData") return e.DecryptData(alg, mode, pad, key, iv, in, out);
  if (op == "EncryptData_NoGenKey") return e.EncryptData_NoGenKey(alg, mode, pad, key, iv, in, out);
  return e.DecryptData_NoGenKey(alg, mode, pad, key, iv, in, out);
}

// s with its first `key` (e.g. $DSAPARAM) replaced by value, if it has one.
inline std::string Subst(std::string s, const std::string& key, const std::string& value) {
  const auto at = s.find(key);
  return at == std::string::npos ? s : s.replace(at, key.size(), value);
}

// Runs a command that must succeed and returns its output.
inline std::string MustRun(const std::string& cmd) {
  std::string out;
  const int rc = qvatest::Run(cmd, &out);
  EXPECT_EQ(rc, 0) << cmd;
  return out;
}

inline std::string Upper(std::string s) {
  for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return s;
}
inline std::string UpperHex(const ByteString& bs) { return Upper(qvatest::ToHex(bs)); }

inline constexpr char kLegacy[] = " -provider legacy -provider default";

}  // namespace cryptotest
