// The crypto core's process-wide lock on POSIX systems.
#include <pthread.h>

#include <cstdio>

#include "ZENALib/QSCrypto/ECSPInternal.h"

namespace ecsp_internal {

namespace {
pthread_mutex_t g_coreMutex = PTHREAD_MUTEX_INITIALIZER;
}

CoreLock::CoreLock() {
  const int rc = pthread_mutex_lock(&g_coreMutex);
  if (rc != 0) {
    std::fprintf(stderr, kMsgCreateMutexFailed, rc);
    return;
  }
  m_bHeld = true;
}

CoreLock::~CoreLock() {
  if (m_bHeld) pthread_mutex_unlock(&g_coreMutex);
}

}  // namespace ecsp_internal
