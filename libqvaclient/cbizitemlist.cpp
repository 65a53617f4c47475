#include "libqvaclient/cbizitemlist.h"

#include <cstdarg>
#include <cstdint>

#include "base/ByteReader.h"
#include "base/ErrorCodes.h"

cBizItemList::cBizItemList() : m_nItemCount(0) {}

cBizItemList::~cBizItemList() = default;

int cBizItemList::AddItem(const ByteString& item) {
  ByteWriter w;
  w.reserve(static_cast<std::size_t>(m_bsItems.length()) + 4 + static_cast<std::size_t>(item.length()))
      .bytes(m_bsItems)
      .u32BE(static_cast<std::uint32_t>(item.length()))
      .bytes(item);
  const int rc = w.finish(&m_bsItems);
  if (rc == BS_OK) ++m_nItemCount;
  return rc;
}

int cBizItemList::AddItem(const char* text) { return AddItem(ByteString(text ? text : "")); }

int cBizItemList::AddItem(char byte) { return AddItem(ByteString(&byte, 1)); }

int cBizItemList::AddItemFormat(const char* fmt, ...) {
  ByteString item;
  va_list args;
  va_start(args, fmt);
  const int rc = item.formatV(fmt, args);
  va_end(args);
  return rc != BS_OK ? rc : AddItem(item);
}

const ByteString& cBizItemList::GetBody() {
  ByteWriter w;
  w.reserve(4 + static_cast<std::size_t>(m_bsItems.length()))
      .u32BE(static_cast<std::uint32_t>(m_nItemCount))
      .bytes(m_bsItems);
  w.finish(&m_bsBody);
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
