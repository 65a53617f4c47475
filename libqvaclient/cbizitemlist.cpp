#include "libqvaclient/cbizitemlist.h"

#include <cstdarg>
#include <cstdint>
#include <new>
#include <utility>

#include "base/ByteReader.h"
#include "base/ErrorCodes.h"

cBizItemList::cBizItemList() : m_nItemsLength(0) {}

cBizItemList::~cBizItemList() = default;

int cBizItemList::AddItem(const ByteString& item) {
  ByteString copy(item);
  if (copy.length() != item.length()) return BS_NO_MEMORY;
  return AddItem(std::move(copy));
}

int cBizItemList::AddItem(ByteString&& item) {
  // The block moves with the string, so the pointer taken here stays good.
  const unsigned char* bytes = item.data();
  const auto length = static_cast<std::size_t>(item.length());
  return Add(Item{std::move(item), bytes, length});
}

int cBizItemList::AddBorrowedItem(const void* p, int n) {
  if (!p || n < 0) n = 0;
  return Add(Item{ByteString(), static_cast<const unsigned char*>(p), static_cast<std::size_t>(n)});
}

int cBizItemList::Add(Item&& item) {
  const std::size_t added = 4 + item.length;
  // The items together stay within what one ByteString holds.
  if (added > kMaxEncodedLength - m_nItemsLength) return BS_NO_MEMORY;
  try {
    m_items.push_back(std::move(item));
  } catch (const std::bad_alloc&) {
    return BS_NO_MEMORY;
  }
  m_nItemsLength += added;
  return BS_OK;
}

int cBizItemList::AddItem(const char* text) { return AddItem(ByteString(text ? text : "")); }

int cBizItemList::AddItem(char byte) { return AddItem(ByteString(&byte, 1)); }

int cBizItemList::AddItemFormat(const char* fmt, ...) {
  ByteString item;
  va_list args;
  va_start(args, fmt);
  const int rc = item.formatV(fmt, args);
  va_end(args);
  return rc != BS_OK ? rc : AddItem(std::move(item));
}

void cBizItemList::Encode(ByteWriter* w) const {
  w->u32BE(static_cast<std::uint32_t>(m_items.size()));
  for (const Item& item : m_items) w->u32BE(static_cast<std::uint32_t>(item.length)).bytes(item.bytes, item.length);
}

const ByteString& cBizItemList::GetBody() {
  // A body that cannot be stored leaves the one built before.
  ByteString body;
  if (AppendEncoded(*this, &body) == BS_OK) m_bsBody = std::move(body);
  return m_bsBody;
}

int cBizItemList::GetItemCount(const ByteString& body) {
  ByteReader r(body);
  std::uint32_t count = 0;
  // Fewer than 4 bytes hold no count; reading on would leave the body.
  if (r.readU32BE(&count) != BS_OK) return 0;
  return static_cast<int>(count);
}

int cBizItemList::GetItem(const ByteString& body, int index, ByteString* out) {
  const int count = GetItemCount(body);
  if (index < 0 || count < 0 || count <= index) return ERR_ITEM_INDEX;
  ByteReader r(body);
  r.skip(4);
  std::uint32_t length = 0;
  for (int i = 0; i < index; ++i) {
    if (r.readU32BE(&length) != BS_OK || r.skip(length) != BS_OK) return ERR_ITEM_INDEX;
  }
  // An item that runs past the body is refused rather than read beyond it.
  if (r.readU32BE(&length) != BS_OK || length > r.remaining()) return ERR_ITEM_INDEX;
  return r.readBytes(length, out);
}
