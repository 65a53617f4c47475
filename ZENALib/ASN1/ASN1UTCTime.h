// ASN1UTCTime: the UTCTime type (universal tag 23).
//
// setValue validates the text with checkUTCTime and keeps the calendar time
// in m_GMTTime; setGMTTime writes "YYMMDDhhmmssZ".
#pragma once

#include <ctime>

#include "ZENALib/ASN1/ASN1Object.h"

class ASN1UTCTime : public ASN1Object {
 public:
  ASN1UTCTime() : m_GMTTime(0) { m_ucPrimitiveTag = ASN1_TAG_UTCTIME; }
  // Decodes one element and checks that it is a UTCTime (an implicit tag is
  // taken as one); 0, 1 for a decoding failure, 2 for another tag.
  int fromASN1Object(const ByteString& bsData) override;
  int fromASN1View(const unsigned char* pData, int nData) override;

  // Writes the text of a calendar time (seconds since 1970-01-01 UTC); a
  // time before 1970 fails with code 1.
  int setGMTTime(std::time_t tTime);
  std::time_t getGMTTime() const { return m_GMTTime; }
  // Validates YYMMDDhhmm[ss]Z or YYMMDDhhmm[ss](+|-)hhmm and stores the
  // calendar time in m_GMTTime; 0 or a code (see README.md).
  int checkUTCTime(const char* szText, int nLength);

 protected:
  int checkValue(const unsigned char* p, int n) override;
  std::time_t m_GMTTime;
};
