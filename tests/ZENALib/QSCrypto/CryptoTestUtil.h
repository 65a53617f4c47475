// Helpers of the crypto tests: trace matching and the openssl/rhash CLI.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <regex>
#include <string>

#include "base/ByteString.h"
#include "tests/support/TestUtil.h"

namespace cryptotest {

// A service trace line "[File.cpp:<line>]Class::Method-field(code), message"
// with the line number left open; the message is matched exactly.
inline ::testing::AssertionResult TraceIs(const ByteString& trace, const std::string& file,
                                          const std::string& classMethod, const std::string& field, int code,
                                          const std::string& message) {
  const std::string head = "[" + file + ":";
  const std::string text = qvatest::Str(trace);
  const std::string tail = "]" + classMethod + "-" + field + "(" + std::to_string(code) + ")" +
                           (message.empty() ? "" : ", " + message);
  const auto close = text.find(']');
  if (text.rfind(head, 0) == 0 && close != std::string::npos &&
      std::regex_match(text.substr(head.size(), close - head.size()), std::regex("[0-9]+")) &&
      text.substr(close) == tail) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "trace \"" << text << "\" is not " << head << "<n>" << tail;
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
