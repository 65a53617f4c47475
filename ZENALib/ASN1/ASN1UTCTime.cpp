#include "ZENALib/ASN1/ASN1UTCTime.h"

#include "ZENALib/ASN1/ASN1Calendar.h"
#include "ZENALib/ASN1/ASN1Codes.h"
#include "ZENALib/ASN1/ASN1Messages.h"

using asn1_calendar::DateTime;
using asn1_calendar::ReadDigits;

namespace {

const char kClass[] = "ASN1UTCTime";
const char kMethod[] = "checkUTCTime";

}  // namespace

int ASN1UTCTime::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1UTCTime::fromASN1View(const unsigned char* pData, int nData) {
  if (const int rc = decodeTyped(__FILE__, __LINE__, pData, nData, kClass, ASN1_TAG_UTCTIME,
                                 "TagType(%d) is not ASN1_TAG_UTCTIME"))
    return rc;
  if (checkUTCTime(reinterpret_cast<const char*>(valueData()), valueLength()) != 0)
    return ASN1_FAIL_CHAINED(kClass, "fromASN1Object", "checkUTCTime", asn1_code::kTimeText);
  return 0;
}

int ASN1UTCTime::checkValue(const unsigned char* p, int n) {
  return checkUTCTime(reinterpret_cast<const char*>(p), n);
}

// A failure of the text check, its message filled with the text.
#define TIME_FAIL(field, code, format) \
  failText(__FILE__, __LINE__, kClass, kMethod, (field), (code), (format), szText, nLength)

int ASN1UTCTime::checkUTCTime(const char* szText, int nLength) {
  if (!szText || nLength < 11) return ASN1_FAIL(kClass, kMethod, "length", asn1_code::kUtcLength, asn1_msg::kGmtFormat);
  const int year = ReadDigits(szText, 2);
  const int month = ReadDigits(szText + 2, 2);
  const int day = ReadDigits(szText + 4, 2);
  const int hour = ReadDigits(szText + 6, 2);
  const int minute = ReadDigits(szText + 8, 2);
  if (minute < 0 || minute > 59) return TIME_FAIL("nMin", asn1_code::kUtcMinutes, asn1_msg::kMinutesError);
  if (hour < 0 || hour > 23) return TIME_FAIL("nHour", asn1_code::kUtcHour, asn1_msg::kHourError);
  if (month < 1 || month > 12) return TIME_FAIL("nMonth", asn1_code::kUtcMonth, asn1_msg::kMonthError);
  if (year < 0) return TIME_FAIL("data", asn1_code::kUtcFormat, asn1_msg::kUtcFormat);
  // Two-digit years: below 50 is 20YY, otherwise 19YY.
  DateTime dt{year < 50 ? 2000 + year : 1900 + year, month, day, hour, minute, 0};
  if (day < 1 || day > asn1_calendar::DaysInMonth(dt.nYear, month))
    return TIME_FAIL("nDay", asn1_code::kUtcDay, asn1_msg::kDayError);

  int offset = 0;  // seconds, signed as it is applied
  auto readSeconds = [&]() {
    dt.nSecond = ReadDigits(szText + 10, 2);
    return dt.nSecond >= 0 && dt.nSecond <= 59;
  };
  switch (nLength) {
    case 11:
      if (szText[10] != 'Z') return TIME_FAIL("data", asn1_code::kUtcFormat, asn1_msg::kUtcFormat);
      break;
    case 13:
      if (!readSeconds()) return TIME_FAIL("nSec", asn1_code::kUtcSeconds, asn1_msg::kSecError);
      if (szText[12] != 'Z') return TIME_FAIL("data", asn1_code::kUtcFormat, asn1_msg::kUtcFormat);
      break;
    case 14:
    case 17: {
      if (nLength == 17 && !readSeconds()) return TIME_FAIL("nSec", asn1_code::kUtcSeconds, asn1_msg::kSecError);
      const char sign = szText[nLength - 5];
      if (sign != '+' && sign != '-') return TIME_FAIL("data", asn1_code::kUtcFormat, asn1_msg::kUtcFormat);
      const int offHour = ReadDigits(szText + nLength - 4, 2);
      const int offMinute = ReadDigits(szText + nLength - 2, 2);
      if (offHour < 0 || offHour > 23) return TIME_FAIL("nHour", asn1_code::kUtcHour, asn1_msg::kHourError);
      if (offMinute < 0 || offMinute > 59) return TIME_FAIL("nMin", asn1_code::kUtcMinutes, asn1_msg::kMinutesError);
      // The offset is added for '+' and taken off for '-': the library's own rule.
      offset = (offHour * 3600 + offMinute * 60) * (sign == '+' ? 1 : -1);
      break;
    }
    default:
      return TIME_FAIL("data", asn1_code::kUtcFormat, asn1_msg::kUtcFormat);
  }
  const std::int64_t t = asn1_calendar::ToSeconds(dt) + offset;
  // Dates before 1970 are negative times; only a time the calendar time type cannot hold is refused.
  if (!asn1_calendar::FitsTimeT(t))
    return TIME_FAIL("data", asn1_code::kUtcUnrepresentable,
                    asn1_msg::kUnrepresentable);
  m_GMTTime = static_cast<std::time_t>(t);
  return 0;
}

#undef TIME_FAIL

int ASN1UTCTime::setGMTTime(std::time_t tTime) {
  // Two digits read back as 1950-2049 only: a time outside would come back as another century.
  const std::int64_t t = static_cast<std::int64_t>(tTime);
  if (t < asn1_calendar::kFirstUTCTime || t > asn1_calendar::kLastUTCTime) {
    ByteString message;
    message.format(asn1_msg::kBefore1970, static_cast<long long>(tTime));
    // Recorded under the other time class's name, as existing traces show it.
    return ASN1_FAIL("ASN1GeneralizedTime", "setGMTTime", "m_GMTTime", asn1_code::kTimeOutOfRange, message.c_str());
  }
  char text[24];
  asn1_calendar::FormatTime(tTime, false, text);
  m_bsValue.replace() = text;
  m_GMTTime = tTime;
  return 0;
}
