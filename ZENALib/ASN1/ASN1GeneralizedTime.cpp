#include "ZENALib/ASN1/ASN1GeneralizedTime.h"

#include "ZENALib/ASN1/ASN1Calendar.h"
#include "ZENALib/ASN1/ASN1Codes.h"
#include "ZENALib/ASN1/ASN1Messages.h"

using asn1_calendar::DateTime;
using asn1_calendar::ReadDigits;

namespace {

const char kClass[] = "ASN1GeneralizedTime";
const char kMethod[] = "CheckGMTTime";

}  // namespace

int ASN1GeneralizedTime::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1GeneralizedTime::fromASN1View(const unsigned char* pData, int nData) {
  if (const int rc = decodeTyped(__FILE__, __LINE__, pData, nData, kClass, ASN1_TAG_GENERALIZEDTIME,
                                 "TagType(%d) is not ASN1_TAG_GENERALIZEDTIME"))
    return rc;
  if (checkGMTTime(reinterpret_cast<const char*>(valueData()), valueLength()) != 0)
    return ASN1_FAIL_CHAINED(kClass, "fromASN1Object", "checkGMTTime", asn1_code::kTimeText);
  return 0;
}

int ASN1GeneralizedTime::checkValue(const unsigned char* p, int n) {
  return checkGMTTime(reinterpret_cast<const char*>(p), n);
}

// A failure of the text check, its message filled with the text.
#define TIME_FAIL(field, code, format) \
  failText(__FILE__, __LINE__, kClass, kMethod, (field), (code), (format), szText, nLength)

int ASN1GeneralizedTime::checkGMTTime(const char* szText, int nLength) {
  if (!szText || nLength < 15)
    return ASN1_FAIL(kClass, "checkGMTTime", "length", asn1_code::kGmtLength, asn1_msg::kGmtFormat);
  DateTime dt{ReadDigits(szText, 4),      ReadDigits(szText + 4, 2),  ReadDigits(szText + 6, 2),
              ReadDigits(szText + 8, 2),  ReadDigits(szText + 10, 2), ReadDigits(szText + 12, 2)};
  if (dt.nSecond < 0 || dt.nSecond > 59) return TIME_FAIL("nSec", asn1_code::kGmtSeconds, asn1_msg::kSecondsError);
  if (dt.nMinute < 0 || dt.nMinute > 59) return TIME_FAIL("nMin", asn1_code::kGmtMinutes, asn1_msg::kMinutesError);
  if (dt.nHour < 0 || dt.nHour > 23) return TIME_FAIL("nHour", asn1_code::kGmtHour, asn1_msg::kHourError);
  if (dt.nMonth < 1 || dt.nMonth > 12) return TIME_FAIL("nMonth", asn1_code::kGmtMonth, asn1_msg::kMonthError);
  if (dt.nYear < 0) return TIME_FAIL("data", asn1_code::kGmtFormat, asn1_msg::kInvalidFormat);
  if (dt.nDay < 1 || dt.nDay > asn1_calendar::DaysInMonth(dt.nYear, dt.nMonth))
    return TIME_FAIL("nDay", dt.nMonth == 2 ? asn1_code::kGmtFebruaryDay : asn1_code::kGmtDay, asn1_msg::kDayError);
  int pos = 14;
  if (szText[pos] == '.') {
    // A fraction of a second is accepted and not kept.
    for (++pos; pos < nLength && szText[pos] >= '0' && szText[pos] <= '9'; ++pos) {
    }
  }
  if (pos != nLength - 1 || szText[pos] != 'Z')
    return TIME_FAIL("data", asn1_code::kGmtFormat, asn1_msg::kInvalidFormat);
  const std::int64_t t = asn1_calendar::ToSeconds(dt);
  // Dates before 1970 are negative times; only a time the calendar time type cannot hold is refused.
  if (!asn1_calendar::FitsTimeT(t))
    return TIME_FAIL("data", asn1_code::kGmtUnrepresentable,
                    asn1_msg::kUnrepresentable);
  m_GMTTime = static_cast<std::time_t>(t);
  return 0;
}

#undef TIME_FAIL

int ASN1GeneralizedTime::setGMTTime(std::time_t tTime) {
  const std::int64_t t = static_cast<std::int64_t>(tTime);
  if (t < asn1_calendar::kFirstGeneralizedTime || t > asn1_calendar::kLastGeneralizedTime) {
    ByteString message;
    message.format(asn1_msg::kBefore1970, static_cast<long long>(tTime));
    return ASN1_FAIL(kClass, "setGMTTime", "m_GMTTime", asn1_code::kTimeOutOfRange, message.c_str());
  }
  char text[24];
  asn1_calendar::FormatTime(tTime, true, text);
  m_bsValue.replace() = text;
  m_GMTTime = tTime;
  return 0;
}
