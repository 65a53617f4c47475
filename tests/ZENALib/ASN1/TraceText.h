// Shared by the ASN.1 tests: a trace with its source line numbers blanked
// ("[ASN1Object.cpp:#]..."), so a test compares the rest of it exactly.
#pragma once

#include <regex>
#include <string>

#include "tests/support/TestUtil.h"

inline std::string TraceWithoutLines(const ByteString& trace) {
  return std::regex_replace(qvatest::Str(trace), std::regex(R"(\.cpp:\d+\])"), ".cpp:#]");
}
