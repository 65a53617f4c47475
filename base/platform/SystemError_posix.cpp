#include <cerrno>
#include <cstring>

#include "base/platform/SystemError.h"

namespace {

// strerror_r comes in two flavours; overloads pick whichever the C library has.
[[maybe_unused]] const char* Pick(int rc, const char* buf) { return rc == 0 ? buf : "Unknown error"; }
[[maybe_unused]] const char* Pick(const char* text, const char*) { return text; }

}  // namespace

int SystemErrorText(int err, ByteString* out) {
  char buf[256] = {0};
  const char* text = Pick(strerror_r(err, buf, sizeof buf), buf);
  // Windows system texts end in CR LF; callers rely on the same shape here.
  return out->format("%s\r\n", text);
}

int LastSystemError() { return errno; }
