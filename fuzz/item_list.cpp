// Item lists on arbitrary bytes: every item that GetItem hands out lies
// inside the body, and the items of a well-formed list add up to it again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "libqvaclient/cbizitemlist.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 20)) return 0;
  const ByteString body(data, static_cast<int>(size));
  const int count = cBizItemList::GetItemCount(body);

  // Items are read in order until one is refused; at most as many as the
  // body could hold (each takes 4 bytes at least).
  cBizItemList again;
  int read = 0;
  std::size_t total = 4;
  for (; read < count && read <= static_cast<int>(size / 4); ++read) {
    ByteString item;
    const int rc = cBizItemList::GetItem(body, read, &item);
    if (rc == 1) break;
    if (rc != 0) std::abort();
    total += 4 + static_cast<std::size_t>(item.length());
    if (total > size || again.AddItem(item) != 0) std::abort();
  }
  // A list whose every counted item was read and which ends with the last
  // one is the list made from those items.
  if (count >= 0 && read == count && total == size && again.GetBody() != body) std::abort();
  return 0;
}
