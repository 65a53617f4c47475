#include "base/ByteReader.h"

#include <cstdlib>
#include <cstring>

int ByteReader::peekU8(std::uint8_t* v) const {
  if (m_n < 1) return BS_OUT_OF_RANGE;
  *v = m_p[0];
  return BS_OK;
}

int ByteReader::readU8(std::uint8_t* v) {
  if (m_n < 1) return BS_OUT_OF_RANGE;
  *v = *m_p++;
  --m_n;
  return BS_OK;
}

int ByteReader::readU16BE(std::uint16_t* v) {
  if (m_n < 2) return BS_OUT_OF_RANGE;
  *v = static_cast<std::uint16_t>((m_p[0] << 8) | m_p[1]);
  m_p += 2;
  m_n -= 2;
  return BS_OK;
}

int ByteReader::readU32BE(std::uint32_t* v) {
  if (m_n < 4) return BS_OUT_OF_RANGE;
  *v = (static_cast<std::uint32_t>(m_p[0]) << 24) | (static_cast<std::uint32_t>(m_p[1]) << 16) |
       (static_cast<std::uint32_t>(m_p[2]) << 8) | m_p[3];
  m_p += 4;
  m_n -= 4;
  return BS_OK;
}

int ByteReader::readBytes(std::size_t n, const unsigned char** p) {
  if (m_n < n) return BS_OUT_OF_RANGE;
  *p = m_p;
  m_p += n;
  m_n -= n;
  return BS_OK;
}

int ByteReader::readBytes(std::size_t n, ByteString* out) {
  if (m_n < n) return BS_OUT_OF_RANGE;
  if (n > static_cast<std::size_t>(INT32_MAX)) return BS_NO_MEMORY;
  const int rc = out->setData(m_p, static_cast<int>(n));
  if (rc != BS_OK) return rc;
  m_p += n;
  m_n -= n;
  return BS_OK;
}

int ByteReader::readReader(std::size_t n, ByteReader* out) {
  if (m_n < n) return BS_OUT_OF_RANGE;
  *out = ByteReader(m_p, n);
  m_p += n;
  m_n -= n;
  return BS_OK;
}

int ByteReader::skip(std::size_t n) {
  if (m_n < n) return BS_OUT_OF_RANGE;
  m_p += n;
  m_n -= n;
  return BS_OK;
}

ByteWriter::~ByteWriter() { std::free(m_p); }

bool ByteWriter::grow(std::size_t extra) {
  if (m_nStatus != BS_OK) return false;
  // A ByteString holds at most INT32_MAX bytes; refuse before any size wraps.
  if (extra > static_cast<std::size_t>(INT32_MAX) - m_nSize) {
    m_nStatus = BS_NO_MEMORY;
    return false;
  }
  const std::size_t need = m_nSize + extra + 1;  // +1 for the terminating zero
  if (need <= m_nCapacity) return true;
  std::size_t cap = m_nCapacity ? m_nCapacity : 64;
  while (cap < need) cap = cap > SIZE_MAX / 2 ? need : cap * 2;
  auto* p = static_cast<unsigned char*>(std::realloc(m_p, cap));
  if (!p) {
    m_nStatus = BS_NO_MEMORY;
    return false;
  }
  m_p = p;
  m_nCapacity = cap;
  return true;
}

ByteWriter& ByteWriter::reserve(std::size_t n) {
  grow(n);
  return *this;
}

ByteWriter& ByteWriter::u8(std::uint8_t v) { return bytes(&v, 1); }

ByteWriter& ByteWriter::u16BE(std::uint16_t v) {
  const unsigned char b[2] = {static_cast<unsigned char>(v >> 8), static_cast<unsigned char>(v)};
  return bytes(b, 2);
}

ByteWriter& ByteWriter::u32BE(std::uint32_t v) {
  const unsigned char b[4] = {static_cast<unsigned char>(v >> 24), static_cast<unsigned char>(v >> 16),
                              static_cast<unsigned char>(v >> 8), static_cast<unsigned char>(v)};
  return bytes(b, 4);
}

ByteWriter& ByteWriter::bytes(const void* p, std::size_t n) {
  if (n == 0 || !grow(n)) return *this;
  std::memcpy(m_p + m_nSize, p, n);
  m_nSize += n;
  return *this;
}

int ByteWriter::finish(ByteString* out) {
  const int rc = m_nStatus;
  if (rc == BS_OK) {
    if (!grow(0)) return m_nStatus;  // room for the terminator even when empty
    // Shrink to the exact size a ByteString keeps; a failed shrink keeps the block.
    auto* exact = static_cast<unsigned char*>(std::realloc(m_p, m_nSize + 1));
    if (exact) m_p = exact;
    m_p[m_nSize] = 0;
    out->adopt(m_p, static_cast<int>(m_nSize));
    m_p = nullptr;
  }
  std::free(m_p);
  m_p = nullptr;
  m_nSize = m_nCapacity = 0;
  m_nStatus = BS_OK;
  return rc;
}
