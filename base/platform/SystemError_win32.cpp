#include <windows.h>

#include "base/platform/SystemError.h"

int SystemErrorText(int err, ByteString* out) {
  char* text = nullptr;
  const DWORD n = FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                     FORMAT_MESSAGE_IGNORE_INSERTS,
                                 nullptr, static_cast<DWORD>(err), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                                 reinterpret_cast<LPSTR>(&text), 0, nullptr);
  const int rc = out->format("%s", n && text ? text : "");
  if (text) LocalFree(text);
  return rc;
}

int LastSystemError() { return static_cast<int>(GetLastError()); }
