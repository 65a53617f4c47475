#include "ZENALib/ASN1/ASN1GeneralizedTime.h"

#include <utility>

#include "ZENALib/ASN1/ASN1Calendar.h"

using asn1_calendar::DateTime;
using asn1_calendar::ReadDigits;

namespace {

const char kClass[] = "ASN1GeneralizedTime";
const char kMethod[] = "CheckGMTTime";
constexpr int kMaxEcho = 1024;
// 9999-12-31 23:59:59 UTC: the last time a four-digit year can write.
constexpr std::int64_t kLastTime = 253402300799;

}  // namespace

ASN1GeneralizedTime::ASN1GeneralizedTime() : m_GMTTime(0) { m_ucPrimitiveTag = ASN1_TAG_GENERALIZEDTIME; }

int ASN1GeneralizedTime::fromASN1Object(const ByteString& bsData) {
  if (const int rc = decodeTyped(__FILE__, __LINE__, bsData, kClass, ASN1_TAG_GENERALIZEDTIME,
                                 "TagType(%d) is not ASN1_TAG_GENERALIZEDTIME"))
    return rc;
  if (checkGMTTime(m_bsValue.c_str(), m_bsValue.length()) != 0)
    return ASN1_FAIL_CHAINED(kClass, "fromASN1Object", "checkGMTTime", 3);
  return 0;
}

int ASN1GeneralizedTime::checkValue(const unsigned char* p, int n) {
  return checkGMTTime(reinterpret_cast<const char*>(p), n);
}

int ASN1GeneralizedTime::checkGMTTime(const char* szText, int nLength) {
  if (!szText || nLength < 15) return ASN1_FAIL(kClass, "checkGMTTime", "length", 1, "Invalid GMT Format");
  const int echo = nLength < kMaxEcho ? nLength : kMaxEcho;
  auto failText = [&](const char* szField, int nCode, const char* szFormat) {
    ByteString message;
    message.format(szFormat, echo, szText);
    return ASN1_FAIL(kClass, kMethod, szField, nCode, message.c_str());
  };
  DateTime dt{ReadDigits(szText, 4),      ReadDigits(szText + 4, 2),  ReadDigits(szText + 6, 2),
              ReadDigits(szText + 8, 2),  ReadDigits(szText + 10, 2), ReadDigits(szText + 12, 2)};
  if (dt.nSecond < 0 || dt.nSecond > 59) return failText("nSec", 2, "%.*s : seconds error");
  if (dt.nMinute < 0 || dt.nMinute > 59) return failText("nMin", 3, "%.*s : minutes error");
  if (dt.nHour < 0 || dt.nHour > 23) return failText("nHour", 4, "%.*s : hour error");
  if (dt.nMonth < 1 || dt.nMonth > 12) return failText("nMonth", 5, "%.*s : month error");
  if (dt.nYear < 0) return failText("data", 8, "%.*s : invalid format");
  if (dt.nDay < 1 || dt.nDay > asn1_calendar::DaysInMonth(dt.nYear, dt.nMonth))
    return failText("nDay", dt.nMonth == 2 ? 6 : 7, "%.*s : day error");
  int pos = 14;
  if (szText[pos] == '.') {
    // A fraction of a second is accepted and not kept.
    for (++pos; pos < nLength && szText[pos] >= '0' && szText[pos] <= '9'; ++pos) {
    }
  }
  if (pos != nLength - 1 || szText[pos] != 'Z') return failText("data", 8, "%.*s : invalid format");
  const std::int64_t t = asn1_calendar::ToSeconds(dt);
  if (t < 0)
    return failText("data", 9,
                    "%.*s references a date before midnight, January 1, 1970, or if the calendar time cannot be "
                    "represented.");
  m_GMTTime = static_cast<std::time_t>(t);
  return 0;
}

int ASN1GeneralizedTime::setGMTTime(std::time_t tTime) {
  if (tTime < 0 || static_cast<std::int64_t>(tTime) > kLastTime) {
    ByteString message;
    message.format("%lld represents a date before midnight, January 1, 1970", static_cast<long long>(tTime));
    return ASN1_FAIL(kClass, "setGMTTime", "m_GMTTime", 1, message.c_str());
  }
  const DateTime dt = asn1_calendar::FromSeconds(tTime);
  ByteString text;
  text.format("%04d%02d%02d%02d%02d%02dZ", dt.nYear, dt.nMonth, dt.nDay, dt.nHour, dt.nMinute, dt.nSecond);
  m_bsValue = std::move(text);
  m_GMTTime = tTime;
  return 0;
}
