#include "ZENALib/ASN1/ASN1Calendar.h"

#include <cstdio>
#include <ctime>
#include <limits>

#include "base/CivilTime.h"

namespace asn1_calendar {

bool IsLeapYear(int y) { return ::IsLeapYear(y); }

int DaysInMonth(int y, int m) {
  static const int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (m < 1 || m > 12) return 0;
  return m == 2 && IsLeapYear(y) ? 29 : kDays[m - 1];
}

bool FitsTimeT(std::int64_t t) {
  using Limits = std::numeric_limits<std::time_t>;
  return t >= static_cast<std::int64_t>(Limits::min()) && t <= static_cast<std::int64_t>(Limits::max());
}

std::int64_t ToSeconds(const DateTime& dt) {
  return SecondsFromCivil(CivilTime{dt.nYear, dt.nMonth, dt.nDay, dt.nHour, dt.nMinute, dt.nSecond});
}

DateTime FromSeconds(std::int64_t t) {
  const CivilTime c = CivilFromSeconds(t);
  return DateTime{static_cast<int>(c.year), c.month, c.day, c.hour, c.minute, c.second};
}

void FormatTime(std::int64_t t, bool bFourDigitYear, char (&szOut)[24]) {
  const DateTime dt = FromSeconds(t);
  std::snprintf(szOut, sizeof szOut, bFourDigitYear ? "%04d%02d%02d%02d%02d%02dZ" : "%02d%02d%02d%02d%02d%02dZ",
                bFourDigitYear ? dt.nYear : dt.nYear % 100, dt.nMonth, dt.nDay, dt.nHour, dt.nMinute, dt.nSecond);
}

int ReadDigits(const char* p, int n) {
  int v = 0;
  for (int i = 0; i < n; ++i) {
    if (p[i] < '0' || p[i] > '9') return -1;
    v = v * 10 + (p[i] - '0');
  }
  return v;
}

}  // namespace asn1_calendar
