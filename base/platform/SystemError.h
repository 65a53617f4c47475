// The operating system's text for an error number.
#pragma once

#include "base/ByteString.h"

// The system's message for `err` (errno on POSIX, a GetLastError value on
// Windows), ending in the line break Windows puts there; stored in *out.
// Returns the store's status.
int SystemErrorText(int err, ByteString* out);

// The calling thread's last system error number (errno, or GetLastError).
int LastSystemError();
