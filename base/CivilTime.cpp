#include "base/CivilTime.h"

// The day-count conversions follow H. Hinnant's days_from_civil and
// civil_from_days algorithms (eras of 400 years, March-based years).

bool IsLeapYear(std::int64_t y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

CivilTime CivilFromSeconds(std::int64_t t) {
  std::int64_t days = t / 86400;
  std::int64_t rest = t % 86400;
  if (rest < 0) {
    rest += 86400;
    --days;
  }
  const std::int64_t z = days + 719468;
  const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const std::int64_t doe = z - era * 146097;
  const std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const std::int64_t mp = (5 * doy + 2) / 153;
  const int day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  const int month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  return CivilTime{yoe + era * 400 + (month <= 2 ? 1 : 0), month, day, static_cast<int>(rest / 3600),
                   static_cast<int>(rest % 3600 / 60), static_cast<int>(rest % 60)};
}

std::int64_t SecondsFromCivil(const CivilTime& t) {
  const std::int64_t y = t.year - (t.month <= 2 ? 1 : 0);
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t yoe = y - era * 400;
  const std::int64_t doy = (153 * (t.month + (t.month > 2 ? -3 : 9)) + 2) / 5 + t.day - 1;
  const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  const std::int64_t days = era * 146097 + doe - 719468;
  return days * 86400 + t.hour * 3600 + t.minute * 60 + t.second;
}
