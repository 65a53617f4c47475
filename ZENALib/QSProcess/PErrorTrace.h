// PErrorTrace: the failure record of the certificate and name utilities.
//
// A failure replaces the text with "[file:line]Class::Method-field(code), "
// followed by the message (no ", " when the message is empty): the toolkit's
// trace form, newest frame first. A callee's trace passed as the message
// chains the frames.
#pragma once

#include "base/ByteString.h"

class PErrorTrace {
 public:
  int GetErrorCode() const { return m_nErrorCode; }
  const ByteString& GetErrorMsg() const { return m_bsErrorMsg; }

 protected:
  explicit PErrorTrace(const char* pszClass) : m_pszClass(pszClass) {}
  ~PErrorTrace() = default;
  PErrorTrace(const PErrorTrace&) = default;
  PErrorTrace& operator=(const PErrorTrace&) = default;

  // Records the failure and returns nCode.
  int Fail(const char* pszFile, int nLine, const char* pszMethod, const char* pszField, int nCode,
           const char* pszMessage);
  void ClearError() {
    m_nErrorCode = 0;
    m_bsErrorMsg.clear();
  }

  int m_nErrorCode = 0;
  ByteString m_bsErrorMsg;

 private:
  const char* m_pszClass;
};

#define P_FAIL(method, field, code, message) Fail(__FILE__, __LINE__, (method), (field), (code), (message))
// The same with a printf-style message.
#define P_FAILF(method, field, code, ...) \
  Fail(__FILE__, __LINE__, (method), (field), (code), PFormat(__VA_ARGS__).c_str())

// printf-style text (at most 2047 characters; longer is empty).
ByteString PFormat(const char* pszFormat, ...) QVA_PRINTF_LIKE(1, 2);
