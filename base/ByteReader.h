// Bounded, non-owning reading and sticky-error writing of bytes.
//
// Every parser of the library reads through a ByteReader: each Read... call
// checks the remaining length first and returns BS_OUT_OF_RANGE (1) instead of
// reading past the end, leaving the reader where it was. A ByteWriter builds
// a buffer by chained appends and remembers its first failure, so an encoder
// writes everything and checks once at finish().
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/ByteString.h"

// Status of the tag and length reads (beside BS_OK and BS_OUT_OF_RANGE).
constexpr int BR_TOO_LONG = 5;  // a tag or length beyond the limits in base/Limits.h

// One element header as ByteReader::readTagLength finds it.
struct TagLength {
  std::uint8_t first = 0;         // first identifier octet
  std::uint32_t tagNo = 0;        // tag number, the high-tag form resolved
  std::size_t idLength = 0;       // identifier octets
  std::size_t headerLength = 0;   // identifier and length octets
  bool indefinite = false;        // length octet 0x80
  std::uint32_t contentLength = 0;  // definite length; 0 when indefinite
};

class ByteReader {
 public:
  ByteReader() = default;
  ByteReader(const void* p, std::size_t n) : m_p(static_cast<const unsigned char*>(p)), m_n(p ? n : 0) {}
  explicit ByteReader(const ByteString& bs) : m_p(bs.data()), m_n(static_cast<std::size_t>(bs.length())) {}

  std::size_t remaining() const { return m_n; }
  bool empty() const { return m_n == 0; }
  const unsigned char* data() const { return m_p; }

  // The small reads are inline: every decoder runs them per octet.
  int peekU8(std::uint8_t* v) const {
    if (m_n < 1) return BS_OUT_OF_RANGE;
    *v = m_p[0];
    return BS_OK;
  }
  int readU8(std::uint8_t* v) {
    if (m_n < 1) return BS_OUT_OF_RANGE;
    *v = *m_p++;
    --m_n;
    return BS_OK;
  }
  int readU16BE(std::uint16_t* v);
  int readU32BE(std::uint32_t* v);
  // Borrows the next n bytes.
  int readBytes(std::size_t n, const unsigned char** p) {
    if (m_n < n) return BS_OUT_OF_RANGE;
    *p = m_p;
    m_p += n;
    m_n -= n;
    return BS_OK;
  }
  // Copies the next n bytes into out (a store failure returns 2 and consumes nothing).
  int readBytes(std::size_t n, ByteString* out);
  // The next n bytes as a reader of their own.
  int readReader(std::size_t n, ByteReader* out);
  // The length octets of an element: a definite length in *pnLength, or
  // *pbIndefinite for 0x80. BS_OUT_OF_RANGE when they run past the end;
  // BR_TOO_LONG for more than qva_limits::kMaxLengthOctets octets or a length
  // over INT32_MAX. Nothing is consumed on failure.
  int readLength(std::uint32_t* pnLength, bool* pbIndefinite);
  // Identifier and length octets of the next element, bounded: a high tag
  // number takes at most qva_limits::kMaxTagOctets identifier octets in all,
  // and definite contents must lie within what is left. The reader stops
  // after the header. BS_OUT_OF_RANGE or BR_TOO_LONG on failure, nothing
  // consumed.
  int readTagLength(TagLength* out) {
    // The common shape inline: a low tag number and a short-form length.
    if (m_n >= 2 && (m_p[0] & 0x1F) != 0x1F && m_p[1] < 0x80 && m_p[1] <= m_n - 2) {
      out->first = m_p[0];
      out->tagNo = m_p[0] & 0x1Fu;
      out->idLength = 1;
      out->headerLength = 2;
      out->indefinite = false;
      out->contentLength = m_p[1];
      m_p += 2;
      m_n -= 2;
      return BS_OK;
    }
    return readTagLengthSlow(out);
  }
  // The octets up to the end-of-contents octets of indefinite-length
  // contents at the reader (nested indefinite lengths followed up to
  // qva_limits::kMaxIndefiniteDepth levels); *pnLength excludes the two end
  // octets. Nothing is consumed.
  int findEndOfContents(std::size_t* pnLength) const;
  int skip(std::size_t n) {
    if (m_n < n) return BS_OUT_OF_RANGE;
    m_p += n;
    m_n -= n;
    return BS_OK;
  }

 private:
  int readTagLengthSlow(TagLength* out);

  const unsigned char* m_p = nullptr;
  std::size_t m_n = 0;
};

class ByteWriter {
 public:
  ByteWriter() = default;
  ~ByteWriter();
  ByteWriter(const ByteWriter&) = delete;
  ByteWriter& operator=(const ByteWriter&) = delete;

  // A secret writer never leaves a copy behind: growing moves the bytes to
  // a new block and wipes the old one, and a failed or reset writer wipes
  // what it held.
  ByteWriter& secret(bool bSecret) {
    m_bSecret = bSecret;
    return *this;
  }
  // Reserves room for n more bytes ahead of time.
  ByteWriter& reserve(std::size_t n);
  ByteWriter& u8(std::uint8_t v);
  ByteWriter& u16BE(std::uint16_t v);
  ByteWriter& u32BE(std::uint32_t v);
  ByteWriter& bytes(const void* p, std::size_t n);
  ByteWriter& bytes(const ByteString& bs) { return bytes(bs.data(), static_cast<std::size_t>(bs.length())); }

  std::size_t size() const { return m_nSize; }
  // 0 while every write succeeded; 2 after an allocation failure or a size
  // beyond what a ByteString can hold.
  int status() const { return m_nStatus; }
  // Hands the bytes to out (exact size, terminated) and resets the writer.
  // Returns the sticky status; on failure out is left unchanged.
  int finish(ByteString* out);

 private:
  bool grow(std::size_t extra);

  unsigned char* m_p = nullptr;
  std::size_t m_nSize = 0;
  std::size_t m_nCapacity = 0;
  int m_nStatus = BS_OK;
  bool m_bSecret = false;
};
