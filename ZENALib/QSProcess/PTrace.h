// PTrace: the failure record of the processing classes.
//
// A failing operation returns a positive code and replaces the trace with
// "[<file>:<line>]<Class>::<method>-<field>(<code>)" followed, when there is
// a message, by ", " and the message: the toolkit's trace form, newest frame
// first (a callee's trace is passed as the message, which is how it chains).
#pragma once

#include "base/ByteString.h"

class PTrace {
 public:
  int getErrorCode() const { return m_nErrorCode; }
  const ByteString& getErrorMessage() const { return m_bsErrorMsg; }

 protected:
  explicit PTrace(const char* pszClass) : m_pszClass(pszClass) {}
  ~PTrace() = default;
  PTrace(const PTrace&) = default;
  PTrace& operator=(const PTrace&) = default;

  // Records the failure and returns nCode. pszMessage may be this object's
  // own trace.
  int fail(const char* pszFile, int nLine, const char* pszMethod, const char* pszField, int nCode,
           const char* pszMessage);
  // The same with a printf message (one %d or one %s, as the texts have).
  int failf(const char* pszFile, int nLine, const char* pszMethod, const char* pszField, int nCode,
            const char* pszFormat, ...) QVA_PRINTF_LIKE(7, 8);
  // The same with another class's name in the line (traces kept as written).
  int failAs(const char* pszFile, int nLine, const char* pszClass, const char* pszMethod, const char* pszField,
             int nCode, const char* pszMessage);

  int m_nErrorCode = 0;
  ByteString m_bsErrorMsg;

 private:
  const char* m_pszClass;
};

#define P_FAIL(method, field, code, message) fail(__FILE__, __LINE__, (method), (field), (code), (message))
#define P_FAILF(method, field, code, ...) failf(__FILE__, __LINE__, (method), (field), (code), __VA_ARGS__)
