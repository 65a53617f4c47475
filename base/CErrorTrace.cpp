#include "base/CErrorTrace.h"

#include <cstring>
#include <utility>

#include "base/ByteReader.h"

CErrorTrace::CErrorTrace() : m_nReserved(0), m_nErrorCode(0) {}

CErrorTrace::~CErrorTrace() = default;

void CErrorTrace::ClearError() {
  m_bsErrorMsg.zeroize();
  m_bsErrorMsg = "";
  m_nReserved = 0;
  m_nErrorCode = 0;
}

void CErrorTrace::ErrorTrace(const char* /*file*/, int /*line*/, const char* method, const char* what,
                             int code, const char* detail) {
  ByteString line;
  const bool haveLine = line.format("%s - %s(%d)%s", method ? method : "", what ? what : "", code, "\r\n") == BS_OK;

  // One allocation for line + detail + older trace.
  ByteWriter w;
  const std::size_t detailLen = detail ? std::strlen(detail) : 0;
  w.reserve(static_cast<std::size_t>(line.length()) + detailLen + static_cast<std::size_t>(m_bsErrorMsg.length()));
  if (haveLine) w.bytes(line);
  if (detail) w.bytes(detail, detailLen);
  w.bytes(m_bsErrorMsg);
  ByteString joined;
  if (w.finish(&joined) == BS_OK) m_bsErrorMsg = std::move(joined);
}

void CErrorTrace::SetErrorMsg(const ByteString& text) { m_bsErrorMsg = text; }
