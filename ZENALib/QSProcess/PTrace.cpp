#include "ZENALib/QSProcess/PTrace.h"

#include <cstdarg>
#include <utility>

int PTrace::failAs(const char* pszFile, int nLine, const char* pszClass, const char* pszMethod,
                   const char* pszField, int nCode, const char* pszMessage) {
  const char* base = pszFile ? pszFile : "";
  for (const char* p = base; *p; ++p) {
    if (*p == '/' || *p == '\\') base = p + 1;
  }
  // The message may be our own trace: copy it before the text is replaced.
  ByteString bsMessage(pszMessage ? pszMessage : "");
  ByteString bsLine;
  bsLine.format(bsMessage.length() > 0 ? "[%s:%d]%s::%s-%s(%d), " : "[%s:%d]%s::%s-%s(%d)", base, nLine, pszClass,
                pszMethod, pszField, nCode);
  bsLine += bsMessage;
  m_bsErrorMsg = std::move(bsLine);
  m_nErrorCode = nCode;
  return nCode;
}

int PTrace::fail(const char* pszFile, int nLine, const char* pszMethod, const char* pszField, int nCode,
                 const char* pszMessage) {
  return failAs(pszFile, nLine, m_pszClass, pszMethod, pszField, nCode, pszMessage);
}

int PTrace::failf(const char* pszFile, int nLine, const char* pszMethod, const char* pszField, int nCode,
                  const char* pszFormat, ...) {
  ByteString bsMsg;
  va_list args;
  va_start(args, pszFormat);
  bsMsg.formatV(pszFormat, args);
  va_end(args);
  return failAs(pszFile, nLine, m_pszClass, pszMethod, pszField, nCode, bsMsg.c_str());
}
