// Preloaded copy counter: counts the memcpy/memmove calls (and realloc calls
// that move a block) of at least QVA_COPY_MIN bytes, split at the process's
// first send() of at least that size, and prints both halves at exit
// (qva_copycount_read hands them to the program itself).
//
//   LD_PRELOAD=libqva_copycount.so QVA_COPY_MIN=51200 program...
//
// Only copies made through the C library's entry points are seen; the
// kernel's copies in send/recv are not.
#include <dlfcn.h>
#include <malloc.h>
#include <sys/socket.h>
#include <sys/types.h>

#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace {

using CopyFn = void* (*)(void*, const void*, std::size_t);
using ReallocFn = void* (*)(void*, std::size_t);
using SendFn = ssize_t (*)(int, const void*, std::size_t, int);

CopyFn g_memcpy = nullptr;
CopyFn g_memmove = nullptr;
ReallocFn g_realloc = nullptr;
SendFn g_send = nullptr;
std::size_t g_min = 1024;

struct Tally {
  std::atomic<long> calls{0};
  std::atomic<long long> bytes{0};
};
Tally g_total;
std::atomic<bool> g_sent{false};
long g_callsBeforeSend = 0;
long long g_bytesBeforeSend = 0;

void Count(std::size_t n) {
  if (n < g_min) return;
  g_total.calls.fetch_add(1);
  g_total.bytes.fetch_add(static_cast<long long>(n));
}

// Used only until the real functions are known (the loader's own copies).
__attribute__((optimize("no-tree-loop-distribute-patterns"))) void* SlowMove(void* d, const void* s,
                                                                               std::size_t n) {
  auto* dst = static_cast<volatile unsigned char*>(d);
  const auto* src = static_cast<const unsigned char*>(s);
  if (dst < src) {
    for (std::size_t i = 0; i < n; ++i) dst[i] = src[i];
  } else {
    for (std::size_t i = n; i > 0; --i) dst[i - 1] = src[i - 1];
  }
  return d;
}

__attribute__((constructor)) void Init() {
  g_memcpy = reinterpret_cast<CopyFn>(dlsym(RTLD_NEXT, "memcpy"));
  g_memmove = reinterpret_cast<CopyFn>(dlsym(RTLD_NEXT, "memmove"));
  g_realloc = reinterpret_cast<ReallocFn>(dlsym(RTLD_NEXT, "realloc"));
  g_send = reinterpret_cast<SendFn>(dlsym(RTLD_NEXT, "send"));
  if (const char* m = std::getenv("QVA_COPY_MIN")) g_min = std::strtoul(m, nullptr, 10);
}

__attribute__((destructor)) void Report() {
  const long calls = g_total.calls.load();
  const long long bytes = g_total.bytes.load();
  if (!g_sent.load()) {
    g_callsBeforeSend = calls;
    g_bytesBeforeSend = bytes;
  }
  std::fprintf(stderr, "copies of >= %zu bytes: before first send %ld (%lld bytes), after %ld (%lld bytes)\n", g_min,
               g_callsBeforeSend, g_bytesBeforeSend, calls - g_callsBeforeSend, bytes - g_bytesBeforeSend);
}

}  // namespace

#define QVA_SHIM __attribute__((visibility("default")))

extern "C" {

// The copies counted so far, before the first send and after it.
QVA_SHIM void qva_copycount_read(long* before, long* after) {
  const long calls = g_total.calls.load();
  *before = g_sent.load() ? g_callsBeforeSend : calls;
  *after = calls - *before;
}

QVA_SHIM void* memcpy(void* d, const void* s, std::size_t n) {
  Count(n);
  return g_memcpy ? g_memcpy(d, s, n) : SlowMove(d, s, n);
}

QVA_SHIM void* memmove(void* d, const void* s, std::size_t n) {
  Count(n);
  return g_memmove ? g_memmove(d, s, n) : SlowMove(d, s, n);
}

QVA_SHIM void* __memcpy_chk(void* d, const void* s, std::size_t n, std::size_t) { return memcpy(d, s, n); }
QVA_SHIM void* __memmove_chk(void* d, const void* s, std::size_t n, std::size_t) { return memmove(d, s, n); }

QVA_SHIM void* realloc(void* p, std::size_t n) {
  const std::size_t old = p ? malloc_usable_size(p) : 0;
  void* q = g_realloc(p, n);
  // A block that moved had its bytes copied (by the allocator, out of sight of memcpy).
  if (q && p && q != p) Count(old < n ? old : n);
  return q;
}

QVA_SHIM ssize_t send(int fd, const void* p, std::size_t n, int flags) {
  if (n >= g_min && !g_sent.exchange(true)) {
    g_callsBeforeSend = g_total.calls.load();
    g_bytesBeforeSend = g_total.bytes.load();
  }
  return g_send(fd, p, n, flags);
}

}  // extern "C"
