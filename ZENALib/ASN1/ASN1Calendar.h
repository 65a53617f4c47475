// Calendar arithmetic shared by the two time types: proleptic Gregorian
// dates to and from seconds since 1970-01-01 00:00:00 UTC, independent of
// the platform's time zone and of the range of its time functions.
#pragma once

#include <cstdint>

namespace asn1_calendar {

struct DateTime {
  int nYear, nMonth, nDay, nHour, nMinute, nSecond;
};

bool IsLeapYear(int nYear);
// Days in a month (1-12) of a year, February by the Gregorian leap rule.
int DaysInMonth(int nYear, int nMonth);
std::int64_t ToSeconds(const DateTime& dt);
DateTime FromSeconds(std::int64_t nSeconds);
// "YYMMDDhhmmssZ" (year modulo 100) or "YYYYMMDDhhmmssZ" of a time.
void FormatTime(std::int64_t nSeconds, bool bFourDigitYear, char (&szOut)[24]);
// The number written by n decimal digits at p, or -1 when one is not a digit.
int ReadDigits(const char* p, int n);

}  // namespace asn1_calendar
