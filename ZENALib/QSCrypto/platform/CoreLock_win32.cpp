// The crypto core's process-wide lock on Windows: one unnamed kernel mutex,
// made on first use.
#include <windows.h>

#include <cstdio>

#include "ZENALib/QSCrypto/ECSPInternal.h"

namespace ecsp_internal {

namespace {

HANDLE CoreMutex() {
  // Made once; the runtime serialises the first call of a local static.
  static const HANDLE mutex = CreateMutexA(nullptr, FALSE, nullptr);
  return mutex;
}

}  // namespace

CoreLock::CoreLock() {
  const HANDLE mutex = CoreMutex();
  if (!mutex) {
    std::fprintf(stderr, kMsgCreateMutexFailed, static_cast<int>(GetLastError()));
    return;
  }
  // An abandoned mutex is ours all the same: its last owner ended while holding it.
  const DWORD rc = WaitForSingleObject(mutex, INFINITE);
  m_bHeld = rc == WAIT_OBJECT_0 || rc == WAIT_ABANDONED;
}

CoreLock::~CoreLock() {
  if (m_bHeld) ReleaseMutex(CoreMutex());
}

}  // namespace ecsp_internal
