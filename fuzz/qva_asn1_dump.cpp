// The element dump of qva asn1 on arbitrary input, where every length and
// nesting level may be hostile: no read out of bounds, no unbounded
// recursion, and a refusal names an offset inside the input.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "tools/qva/asn1.cpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static std::FILE* sink = std::fopen("/dev/null", "w");
  if (!sink || size > (1u << 20)) return 0;
  const ByteString der(data, static_cast<int>(size));
  const long bad = DumpAsn1(der, sink);
  // A refusal names an offset inside the input.
  if (bad < 0 || bad > static_cast<long>(size)) std::abort();
  return 0;
}
