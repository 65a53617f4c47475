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

class ByteReader {
 public:
  ByteReader() = default;
  ByteReader(const void* p, std::size_t n) : m_p(static_cast<const unsigned char*>(p)), m_n(p ? n : 0) {}
  explicit ByteReader(const ByteString& bs) : m_p(bs.data()), m_n(static_cast<std::size_t>(bs.length())) {}

  std::size_t remaining() const { return m_n; }
  bool empty() const { return m_n == 0; }
  const unsigned char* data() const { return m_p; }

  int peekU8(std::uint8_t* v) const;
  int readU8(std::uint8_t* v);
  int readU16BE(std::uint16_t* v);
  int readU32BE(std::uint32_t* v);
  // Borrows the next n bytes.
  int readBytes(std::size_t n, const unsigned char** p);
  // Copies the next n bytes into out (a store failure returns 2 and consumes nothing).
  int readBytes(std::size_t n, ByteString* out);
  // The next n bytes as a reader of their own.
  int readReader(std::size_t n, ByteReader* out);
  int skip(std::size_t n);

 private:
  const unsigned char* m_p = nullptr;
  std::size_t m_n = 0;
};

class ByteWriter {
 public:
  ByteWriter() = default;
  ~ByteWriter();
  ByteWriter(const ByteWriter&) = delete;
  ByteWriter& operator=(const ByteWriter&) = delete;

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
};
