#include "tests/support/HeapHook.h"

#include <atomic>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QVA_HEAPHOOK_ASAN 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define QVA_HEAPHOOK_ASAN 1
#endif

namespace {

std::atomic<bool> g_counting{false};
std::atomic<long> g_allocations{0};
std::atomic<long> g_bytes{0};
std::atomic<qvatest::FreeInspector> g_inspector{nullptr};
std::atomic<void*> g_context{nullptr};

void Counted(std::size_t n) {
  if (!g_counting.load(std::memory_order_relaxed)) return;
  g_allocations.fetch_add(1, std::memory_order_relaxed);
  g_bytes.fetch_add(static_cast<long>(n), std::memory_order_relaxed);
}

void Inspect(const void* p, std::size_t n) {
  if (!p) return;
  if (qvatest::FreeInspector fn = g_inspector.load(std::memory_order_acquire)) fn(p, n, g_context.load());
}

}  // namespace

#if defined(QVA_HEAPHOOK_ASAN)

#include <sanitizer/allocator_interface.h>

namespace {

void OnMalloc(const volatile void*, std::size_t n) { Counted(n); }
void OnFree(const volatile void* p) {
  const void* block = const_cast<const void*>(p);
  Inspect(block, __sanitizer_get_allocated_size(block));
}
const int g_installed = __sanitizer_install_malloc_and_free_hooks(OnMalloc, OnFree);

}  // namespace

bool qvatest::HeapHookAvailable() { return g_installed != 0; }

#elif defined(__GLIBC__)

#include <malloc.h>

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void __libc_free(void*);

// Forwarders to the C library's allocator; the program's definitions take
// the place of the library's for every caller in the process.
void* malloc(std::size_t n) {
  void* p = __libc_malloc(n);
  if (p) Counted(n);
  return p;
}
void* calloc(std::size_t count, std::size_t n) {
  void* p = __libc_calloc(count, n);
  if (p) Counted(count * n);
  return p;
}
void* realloc(void* old, std::size_t n) {
  if (old && n == 0) Inspect(old, malloc_usable_size(old));
  void* p = __libc_realloc(old, n);
  if (p) Counted(n);
  return p;
}
void free(void* p) {
  Inspect(p, p ? malloc_usable_size(p) : 0);
  __libc_free(p);
}
}

bool qvatest::HeapHookAvailable() { return true; }

#else

bool qvatest::HeapHookAvailable() { return false; }

#endif

void qvatest::HeapHookStart() {
  g_allocations = 0;
  g_bytes = 0;
  g_counting = true;
}

qvatest::HeapCounts qvatest::HeapHookStop() {
  g_counting = false;
  HeapCounts c;
  c.allocations = g_allocations.load();
  c.bytes = g_bytes.load();
  return c;
}

void qvatest::SetFreeInspector(FreeInspector fn, void* context) {
  g_context = context;
  g_inspector.store(fn, std::memory_order_release);
}
