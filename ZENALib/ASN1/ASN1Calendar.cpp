#include "ZENALib/ASN1/ASN1Calendar.h"

#include <cstdio>

namespace asn1_calendar {

bool IsLeapYear(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int DaysInMonth(int y, int m) {
  static const int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (m < 1 || m > 12) return 0;
  return m == 2 && IsLeapYear(y) ? 29 : kDays[m - 1];
}

// Days from 1970-01-01 to a civil date (H. Hinnant's days_from_civil).
static std::int64_t DaysFromCivil(std::int64_t y, int m, int d) {
  y -= m <= 2;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t yoe = y - era * 400;
  const std::int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

std::int64_t ToSeconds(const DateTime& dt) {
  return DaysFromCivil(dt.nYear, dt.nMonth, dt.nDay) * 86400 + dt.nHour * 3600 + dt.nMinute * 60 + dt.nSecond;
}

DateTime FromSeconds(std::int64_t t) {
  std::int64_t days = t / 86400;
  std::int64_t rest = t % 86400;
  if (rest < 0) {
    rest += 86400;
    --days;
  }
  // civil_from_days
  const std::int64_t z = days + 719468;
  const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const std::int64_t doe = z - era * 146097;
  const std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const std::int64_t mp = (5 * doy + 2) / 153;
  const int d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  const int m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  const std::int64_t y = yoe + era * 400 + (m <= 2);
  return DateTime{static_cast<int>(y), m, d, static_cast<int>(rest / 3600), static_cast<int>(rest % 3600 / 60),
                  static_cast<int>(rest % 60)};
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
