#include "base/ByteString.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/CivilTime.h"
#include "base/SecureZero.h"

namespace {

// Shared by every string for the accessors; never written.
const unsigned char kEmptyText[1] = {0};

// Allocates n + 1 bytes with the terminating zero in place; null on failure.
unsigned char* AllocTerminated(std::size_t n) {
  auto* p = static_cast<unsigned char*>(std::malloc(n + 1));
  if (p) p[n] = 0;
  return p;
}

int HexValue(unsigned char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return 0;
}

int TextLength(const char* text) {
  std::size_t n = std::strlen(text);
  return n > static_cast<std::size_t>(INT32_MAX) ? -1 : static_cast<int>(n);
}

}  // namespace

ByteString::ByteString(const char* text) : ByteString() {
  if (text) m_nStatus = setData(text, TextLength(text));
}

ByteString::ByteString(const void* p, int n) : ByteString() { m_nStatus = setData(p, n); }

ByteString::ByteString(const ByteString& other) : ByteString() {
  if (!other.isEmpty()) m_nStatus = setData(other.m_pBuffer, other.m_nLength);
}

ByteString::ByteString(ByteString&& other) noexcept
    : m_nLength(other.m_nLength), m_pBuffer(other.m_pBuffer), m_nStatus(BS_OK) {
  other.m_nLength = 0;
  other.m_pBuffer = nullptr;
}

int ByteString::setData(const void* p, int n) {
  if (!p || n < 0) {
    clear();
    return BS_OK;
  }
  // The copy is made before the old block goes, so p may point into it.
  unsigned char* block = AllocTerminated(static_cast<std::size_t>(n));
  if (block && n) std::memcpy(block, p, static_cast<std::size_t>(n));
  clear();
  if (!block) {
    m_nStatus = BS_NO_MEMORY;
    return BS_NO_MEMORY;
  }
  m_pBuffer = block;
  m_nLength = n;
  return BS_OK;
}

void ByteString::adopt(unsigned char* block, int n) {
  clear();
  m_pBuffer = block;
  m_nLength = n;
}

ByteString& ByteString::operator=(const ByteString& other) {
  m_nStatus = BS_OK;
  if (this == &other) return *this;
  clear();
  if (other.m_pBuffer == nullptr || other.m_nLength < 1) return *this;
  if (setData(other.m_pBuffer, other.m_nLength) != BS_OK) {
    m_nStatus = BS_NO_MEMORY;
    m_nLength = 0;
  }
  return *this;
}

ByteString& ByteString::operator=(ByteString&& other) noexcept {
  m_nStatus = BS_OK;
  if (this == &other) return *this;
  std::free(m_pBuffer);
  m_pBuffer = nullptr;
  m_nLength = 0;
  // The same rule as the copy: a source with no bytes leaves no buffer behind.
  if (other.m_pBuffer != nullptr && other.m_nLength >= 1) {
    m_pBuffer = other.m_pBuffer;
    m_nLength = other.m_nLength;
  } else {
    std::free(other.m_pBuffer);
  }
  other.m_pBuffer = nullptr;
  other.m_nLength = 0;
  return *this;
}

ByteString& ByteString::operator=(const char* text) {
  if (!text) {
    clear();
    return *this;
  }
  return *this = ByteString(text);
}

ByteString& ByteString::operator=(char byte) {
  m_nStatus = setData(&byte, 1);
  return *this;
}

int ByteString::append(const void* p, int n) {
  m_nStatus = BS_OK;
  if (!p || n <= 0) return BS_OK;
  // Lengths are signed 32-bit: refuse a sum that would not fit rather than wrap.
  if (n > INT32_MAX - m_nLength) {
    m_nStatus = BS_NO_MEMORY;
    return BS_NO_MEMORY;
  }
  const std::size_t total = static_cast<std::size_t>(m_nLength) + static_cast<std::size_t>(n);
  unsigned char* block = AllocTerminated(total);
  if (!block) {
    m_nStatus = BS_NO_MEMORY;
    return BS_NO_MEMORY;
  }
  if (m_nLength) std::memcpy(block, m_pBuffer, static_cast<std::size_t>(m_nLength));
  // p may point into this string's own buffer (appending to itself), which is
  // still valid here because the old block is released only afterwards.
  std::memcpy(block + m_nLength, p, static_cast<std::size_t>(n));
  std::free(m_pBuffer);
  m_pBuffer = block;
  m_nLength = static_cast<int>(total);
  return BS_OK;
}

ByteString& ByteString::operator+=(const ByteString& other) {
  append(other.m_pBuffer, other.m_nLength);
  return *this;
}

ByteString& ByteString::operator+=(const char* text) {
  if (text) append(text, TextLength(text));
  return *this;
}

ByteString& ByteString::operator+=(char byte) {
  append(&byte, 1);
  return *this;
}

const unsigned char* ByteString::data() const {
  return m_nLength < 1 ? kEmptyText : m_pBuffer;
}

const char* ByteString::c_str() const {
  return reinterpret_cast<const char*>(m_pBuffer ? m_pBuffer : kEmptyText);
}

int ByteString::getAt(int i, char* out) const {
  if (i < 0 || i >= m_nLength) return BS_OUT_OF_RANGE;
  if (out) *out = static_cast<char>(m_pBuffer[i]);
  return BS_OK;
}

int ByteString::setAt(int i, char b) {
  if (i < 0 || i >= m_nLength) return BS_OUT_OF_RANGE;
  m_pBuffer[i] = static_cast<unsigned char>(b);
  return BS_OK;
}

void ByteString::clear() {
  std::free(m_pBuffer);
  m_pBuffer = nullptr;
  m_nLength = 0;
  m_nStatus = BS_OK;
}

void ByteString::zeroize() {
  if (m_pBuffer && m_nLength > 0) SecureZero(m_pBuffer, static_cast<std::size_t>(m_nLength));
}

int ByteString::resize(int n) {
  if (n < 0) return m_nStatus = BS_OUT_OF_RANGE;
  unsigned char* block = AllocTerminated(static_cast<std::size_t>(n));
  if (!block) return m_nStatus = BS_NO_MEMORY;
  const int keep = n < m_nLength ? n : m_nLength;
  if (keep) std::memcpy(block, m_pBuffer, static_cast<std::size_t>(keep));
  if (n > keep) std::memset(block + keep, 0, static_cast<std::size_t>(n - keep));
  std::free(m_pBuffer);
  m_pBuffer = block;
  m_nLength = n;
  return m_nStatus = BS_OK;
}

bool ByteString::operator==(const ByteString& other) const {
  if (this == &other) return true;
  if (m_nLength != other.m_nLength) return false;
  return m_nLength == 0 || std::memcmp(m_pBuffer, other.m_pBuffer, static_cast<std::size_t>(m_nLength)) == 0;
}

bool ByteString::operator==(const char* text) const {
  if (!text) return m_pBuffer == nullptr;
  if (TextLength(text) != m_nLength) return false;
  return m_nLength == 0 || std::memcmp(m_pBuffer, text, static_cast<std::size_t>(m_nLength)) == 0;
}

ByteString ByteString::mid(int start, int count) const {
  // A negative count is refused like any other range that leaves the string.
  if (start < 0 || start >= m_nLength || count < 0 ||
      static_cast<std::int64_t>(start) + count > m_nLength) {
    m_nStatus = BS_OUT_OF_RANGE;
    return ByteString();
  }
  return ByteString(m_pBuffer + start, count);
}

int ByteString::find(const void* pattern, int n) const {
  if (!pattern || n <= 0 || n > m_nLength) return -1;
  const auto* pat = static_cast<const unsigned char*>(pattern);
  const unsigned char* p = m_pBuffer;
  const unsigned char* last = m_pBuffer + (m_nLength - n);
  while (p <= last) {
    p = static_cast<const unsigned char*>(std::memchr(p, pat[0], static_cast<std::size_t>(last - p) + 1));
    if (!p) return -1;
    if (std::memcmp(p, pat, static_cast<std::size_t>(n)) == 0) return static_cast<int>(p - m_pBuffer);
    ++p;
  }
  return -1;
}

int ByteString::find(const char* text) const {
  if (!text) return -1;
  return find(text, TextLength(text));
}

ByteString ByteString::toHex() const {
  static const char kDigits[] = "0123456789abcdef";
  ByteString out;
  if (m_nLength < 1) return out;
  // 2 * length must stay a valid length.
  if (m_nLength > INT32_MAX / 2) {
    m_nStatus = BS_NO_MEMORY;
    return out;
  }
  unsigned char* block = AllocTerminated(static_cast<std::size_t>(m_nLength) * 2);
  if (!block) {
    m_nStatus = BS_NO_MEMORY;
    return out;
  }
  for (int i = 0; i < m_nLength; ++i) {
    block[2 * i] = kDigits[m_pBuffer[i] >> 4];
    block[2 * i + 1] = kDigits[m_pBuffer[i] & 0x0F];
  }
  out.adopt(block, m_nLength * 2);
  return out;
}

ByteString ByteString::toHexString(int group, int line) const {
  static const char kDigits[] = "0123456789ABCDEF";
  ByteString out;
  if (m_nLength < 1) return out;
  const std::int64_t digits = static_cast<std::int64_t>(m_nLength) * 2;
  // Separators stand before digit i (i > 0) when i is a multiple of the step.
  std::int64_t size = digits;
  if (group > 0) size += (digits - 1) / group;
  if (line > 0) size += 2 * ((digits - 1) / line);
  if (size > INT32_MAX) {
    m_nStatus = BS_NO_MEMORY;
    return out;
  }
  unsigned char* block = AllocTerminated(static_cast<std::size_t>(size));
  if (!block) {
    m_nStatus = BS_NO_MEMORY;
    return out;
  }
  std::size_t w = 0;
  for (std::int64_t i = 0; i < digits; ++i) {
    if (i != 0 && group > 0 && i % group == 0) block[w++] = ' ';
    if (i != 0 && line > 0 && i % line == 0) {
      block[w++] = '\r';
      block[w++] = '\n';
    }
    const unsigned char b = m_pBuffer[i / 2];
    block[w++] = kDigits[(i % 2 == 0) ? (b >> 4) : (b & 0x0F)];
  }
  out.adopt(block, static_cast<int>(size));
  return out;
}

ByteString ByteString::fromHexString() const {
  ByteString out;
  if (m_nLength < 2) {
    m_nStatus = BS_NOTHING_TO_CONVERT;
    return out;
  }
  const int n = m_nLength / 2;
  unsigned char* block = AllocTerminated(static_cast<std::size_t>(n));
  if (!block) {
    m_nStatus = BS_NO_MEMORY;
    return out;
  }
  for (int i = 0; i < n; ++i)
    block[i] = static_cast<unsigned char>(HexValue(m_pBuffer[2 * i]) * 16 + HexValue(m_pBuffer[2 * i + 1]));
  out.adopt(block, n);
  return out;
}

int ByteString::format(const char* fmt, ...) {
  va_list args;
  va_start(args, fmt);
  const int rc = formatV(fmt, args);
  va_end(args);
  return rc;
}

int ByteString::formatV(const char* fmt, va_list args) {
  if (!fmt) return BS_FORMAT;
  char text[BS_FORMAT_MAX + 1];
  // vsnprintf never writes past the buffer and reports the full length, so an
  // over-long result is detected without overflowing.
  const int n = std::vsnprintf(text, sizeof text, fmt, args);
  if (n < 0 || n > BS_FORMAT_MAX) return BS_FORMAT;
  m_nStatus = setData(text, n);
  return m_nStatus;
}

int ByteString::format2K(std::int64_t t) {
  const CivilTime c = CivilFromSeconds(t);
  if (c.year < 0 || c.year > 9999) return BS_FORMAT;
  return format("%04d/%02d/%02d %02d:%02d:%02d", static_cast<int>(c.year), c.month, c.day, c.hour, c.minute,
                c.second);
}
