// Proleptic Gregorian calendar arithmetic on seconds since 1970-01-01
// 00:00:00 UTC, without the platform's time functions (their range and time
// zone handling differ between systems and 32-bit time_t).
#pragma once

#include <cstdint>

struct CivilTime {
  std::int64_t year;
  int month, day, hour, minute, second;
};

bool IsLeapYear(std::int64_t year);
CivilTime CivilFromSeconds(std::int64_t seconds);
std::int64_t SecondsFromCivil(const CivilTime& t);
