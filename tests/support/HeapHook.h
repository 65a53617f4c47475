// Counts the process's heap allocations and shows tests each block as it is
// freed (to prove that secrets were wiped before their memory went back).
// Release builds replace malloc and free with counting forwarders to the C
// library's own (glibc); sanitizer builds use the sanitizer's hooks.
#pragma once

#include <cstddef>

namespace qvatest {

struct HeapCounts {
  long allocations = 0;  // malloc, calloc and realloc calls that returned a block
  long bytes = 0;        // bytes those calls asked for
};

// Whether this build can count (false where neither hook exists).
bool HeapHookAvailable();
// Starts counting from zero; Stop returns the counts since Start.
void HeapHookStart();
HeapCounts HeapHookStop();

// While set, fn sees every block (its usable bytes) just before it is freed.
using FreeInspector = void (*)(const void* block, std::size_t size, void* context);
void SetFreeInspector(FreeInspector fn, void* context);

}  // namespace qvatest
