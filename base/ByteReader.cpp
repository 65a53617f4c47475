#include "base/ByteReader.h"

#include <cstdlib>
#include <cstring>

#include "base/Limits.h"
#include "base/SecureZero.h"

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

int ByteReader::readLength(std::uint32_t* pnLength, bool* pbIndefinite) {
  ByteReader r = *this;
  std::uint8_t first = 0;
  if (r.readU8(&first) != BS_OK) return BS_OUT_OF_RANGE;
  *pbIndefinite = false;
  std::uint32_t len = first;
  if (first == 0x80) {
    *pbIndefinite = true;
    len = 0;
  } else if (first > 0x80) {
    const int octets = first & 0x7F;
    if (octets > qva_limits::kMaxLengthOctets) return BR_TOO_LONG;
    len = 0;
    for (int i = 0; i < octets; ++i) {
      std::uint8_t digit = 0;
      if (r.readU8(&digit) != BS_OK) return BS_OUT_OF_RANGE;
      len = (len << 8) | digit;
    }
    // Lengths are kept in signed 32-bit fields.
    if (len > static_cast<std::uint32_t>(INT32_MAX)) return BR_TOO_LONG;
  }
  *pnLength = len;
  *this = r;
  return BS_OK;
}

int ByteReader::readTagLengthSlow(TagLength* out) {
  ByteReader r = *this;
  TagLength h;
  if (r.readU8(&h.first) != BS_OK) return BS_OUT_OF_RANGE;
  h.tagNo = h.first & 0x1Fu;
  if (h.tagNo == 0x1F) {
    h.tagNo = 0;
    std::uint8_t b = 0;
    int octets = 1;
    do {
      if (++octets > qva_limits::kMaxTagOctets) return BR_TOO_LONG;
      if (r.readU8(&b) != BS_OK) return BS_OUT_OF_RANGE;
      h.tagNo = (h.tagNo << 7) | (b & 0x7Fu);
    } while (b & 0x80);
  }
  h.idLength = m_n - r.m_n;
  if (const int rc = r.readLength(&h.contentLength, &h.indefinite)) return rc;
  h.headerLength = m_n - r.m_n;
  if (!h.indefinite && h.contentLength > r.m_n) return BS_OUT_OF_RANGE;
  *out = h;
  *this = r;
  return BS_OK;
}

namespace {

int FindEnd(ByteReader r, std::size_t* pnLength, int depth) {
  // Each nested indefinite length costs a frame: hostile input could nest
  // them until the stack runs out.
  if (depth > qva_limits::kMaxIndefiniteDepth) return BR_TOO_LONG;
  const std::size_t total = r.remaining();
  for (;;) {
    if (r.remaining() >= 2 && r.data()[0] == 0 && r.data()[1] == 0) {
      *pnLength = total - r.remaining();
      return BS_OK;
    }
    TagLength h;
    if (const int rc = r.readTagLength(&h)) return rc;
    std::size_t len = h.contentLength;
    if (h.indefinite) {
      if (const int rc = FindEnd(r, &len, depth + 1)) return rc;
      len += 2;
    }
    if (r.skip(len) != BS_OK) return BS_OUT_OF_RANGE;
  }
}

}  // namespace

int ByteReader::findEndOfContents(std::size_t* pnLength) const { return FindEnd(*this, pnLength, 1); }

ByteWriter::~ByteWriter() {
  if (m_bSecret && m_p) SecureZero(m_p, m_nCapacity);
  std::free(m_p);
}

namespace {

// realloc, except that a secret block is copied and wiped rather than left
// behind in freed memory.
unsigned char* Resize(unsigned char* p, std::size_t used, std::size_t capacity, std::size_t n, bool secret) {
  if (!secret) return static_cast<unsigned char*>(std::realloc(p, n));
  auto* q = static_cast<unsigned char*>(std::malloc(n));
  if (!q) return nullptr;
  if (p) {
    std::memcpy(q, p, used < n ? used : n);
    SecureZero(p, capacity);
    std::free(p);
  }
  return q;
}

}  // namespace

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
  auto* p = Resize(m_p, m_nSize, m_nCapacity, cap, m_bSecret);
  if (!p) {
    m_nStatus = BS_NO_MEMORY;
    return false;
  }
  m_p = p;
  m_nCapacity = cap;
  return true;
}

ByteWriter& ByteWriter::reserve(std::size_t n) {
  // A first reservation is taken exactly: a writer told its size ahead
  // ends with the one block it started with.
  if (!m_p && m_nStatus == BS_OK && n <= static_cast<std::size_t>(INT32_MAX)) {
    m_p = static_cast<unsigned char*>(std::malloc(n + 1));
    if (!m_p) {
      m_nStatus = BS_NO_MEMORY;
      return *this;
    }
    m_nCapacity = n + 1;
    return *this;
  }
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
    auto* exact = Resize(m_p, m_nSize, m_nCapacity, m_nSize + 1, m_bSecret);
    if (exact) m_p = exact;
    m_p[m_nSize] = 0;
    out->adopt(m_p, static_cast<int>(m_nSize));
    m_p = nullptr;
  }
  if (m_bSecret && m_p) SecureZero(m_p, m_nCapacity);
  std::free(m_p);
  m_p = nullptr;
  m_nSize = m_nCapacity = 0;
  m_nStatus = BS_OK;
  return rc;
}
