// QSService: base of the crypto service classes. Holds the error code and
// trace text and runs the steps every operation shares: translating the
// algorithm number, the licence gate and recording a core failure.
//
// A failure replaces the text with "[file:line]Class::Method-field(code), "
// followed by the message (no ", " when the message is empty), the toolkit's
// trace form; the newest frame stands first.
#pragma once

#include "base/ByteString.h"

// The codes a service class returns for its own refusals (the core's codes
// pass through unchanged). All are positive: callers test for success with
// "less than 1" as well as "equal to 0".
constexpr int QS_ERR_ALGORITHM = 105;  // no core number for the algorithm
constexpr int QS_ERR_MODE = 104;       // no core number for the cipher mode or padding
constexpr int QS_ERR_MEMORY = 102;     // an allocation failed
constexpr int QS_ERR_NOT_INIT = 110;   // a staged step without its Init
constexpr int QS_ERR_LICENSE = 1;      // the licence gate refused

class QSService {
 public:
  int GetErrorCode() const { return m_nErrorCode; }
  const ByteString& GetErrorMsg() const { return m_bsErrorMsg; }

 protected:
  explicit QSService(const char* pszClass) : m_pszClass(pszClass) {}
  ~QSService() = default;
  QSService(const QSService&) = delete;
  QSService& operator=(const QSService&) = delete;

  // Records the failure and returns nCode.
  int Fail(const char* pszFile, int nLine, const char* pszMethod, const char* pszField, int nCode,
           const char* pszMessage);
  // Translates nAlgID ("The AlgID(%d) is not supported.") and runs the
  // licence gate (field "license"); 0 with *pnCoreAlg set, or the code.
  int TranslateAndAdmit(const char* pszFile, int nLine, const char* pszMethod, int nAlgID, int* pnCoreAlg);
  // Records a non-zero core result under the core function's name with the
  // core's text, and returns it.
  int CoreFail(const char* pszFile, int nLine, const char* pszMethod, const char* pszCoreFunction, int nCode);

  int m_nErrorCode = 0;
  ByteString m_bsErrorMsg;

 private:
  const char* m_pszClass;
};

// The same with the caller's source position.
#define QS_FAIL(method, field, code, message) Fail(__FILE__, __LINE__, (method), (field), (code), (message))
#define QS_ADMIT(method, nAlgID, pnCoreAlg) TranslateAndAdmit(__FILE__, __LINE__, (method), (nAlgID), (pnCoreAlg))
#define QS_CORE_FAIL(method, coreFunction, code) CoreFail(__FILE__, __LINE__, (method), (coreFunction), (code))
