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
// Whether a time fits the platform's calendar time type (32-bit time_t
// builds cannot hold every year a time text can write).
bool FitsTimeT(std::int64_t nSeconds);
// First and last seconds a UTCTime (1950-2049) and a GeneralizedTime
// (0000-9999) can write.
constexpr std::int64_t kFirstUTCTime = -631152000;       // 1950-01-01 00:00:00
constexpr std::int64_t kLastUTCTime = 2524607999;        // 2049-12-31 23:59:59
constexpr std::int64_t kFirstGeneralizedTime = -62167219200;  // 0000-01-01 00:00:00
constexpr std::int64_t kLastGeneralizedTime = 253402300799;   // 9999-12-31 23:59:59
// "YYMMDDhhmmssZ" (year modulo 100) or "YYYYMMDDhhmmssZ" of a time.
void FormatTime(std::int64_t nSeconds, bool bFourDigitYear, char (&szOut)[24]);
// The number written by n decimal digits at p, or -1 when one is not a digit.
int ReadDigits(const char* p, int n);

}  // namespace asn1_calendar
