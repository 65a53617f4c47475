// Shared by the ASN.1 tests.
#pragma once

#include <ctime>
#include <regex>
#include <string>

#include "tests/support/TestUtil.h"

// A trace with its source line numbers blanked ("[ASN1Object.cpp:#]..."), so
// a test compares the rest of it exactly.
inline std::string TraceWithoutLines(const ByteString& trace) {
  return std::regex_replace(qvatest::Str(trace), std::regex(R"(\.cpp:\d+\])"), ".cpp:#]");
}

// Seconds since 1970 of a UTC date, by the C library rather than by our calendar.
inline std::time_t UtcSeconds(int y, int mo, int d, int h, int mi, int s) {
  std::tm tm{};
  tm.tm_year = y - 1900;
  tm.tm_mon = mo - 1;
  tm.tm_mday = d;
  tm.tm_hour = h;
  tm.tm_min = mi;
  tm.tm_sec = s;
  return timegm(&tm);
}
