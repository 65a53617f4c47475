// CErrorTrace: the failure record every client, transport, protocol and
// facade class derives from.
//
// A failing operation calls ErrorTrace with its own Class::Method name, the
// callee that failed, the code and the callee's trace; the new line is put in
// front, so the outermost object ends up holding the whole chain, newest line
// first, innermost detail last.
#pragma once

#include "base/ByteString.h"

class CErrorTrace {
 public:
  CErrorTrace();
  virtual ~CErrorTrace();

  // Wipes and empties the trace and resets the code to 0.
  void ClearError();
  // Puts "<method> - <what>(<code>)\r\n" + detail in front of the trace.
  // file and line are accepted for the caller's convenience and ignored. A
  // line that cannot be formatted (over 2047 characters) is left out. Does
  // not change the stored code.
  void ErrorTrace(const char* file, int line, const char* method, const char* what, int code,
                  const char* detail);
  void SetErrorMsg(const ByteString& text);
  const ByteString& GetErrorMsg() const { return m_bsErrorMsg; }
  int GetErrorCode() const { return m_nErrorCode; }

 protected:
  int m_nReserved;
  ByteString m_bsErrorMsg;
  int m_nErrorCode;
};

// Records a failure with the caller's source position.
#define QVA_ERROR_TRACE(method, what, code, detail) \
  ErrorTrace(__FILE__, __LINE__, (method), (what), (code), (detail))
