// ByteString: the one owned byte buffer of the library.
//
// A ByteString holds `length()` bytes in a heap block of exactly length + 1
// bytes whose last byte is always zero, so a text held in it can be handed
// to C text functions through c_str(). Copies are deep; operations never
// throw. An operation that can fail records a status (below) in the object
// and, where it returns an int, returns the same code.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Status codes recorded by ByteString operations.
constexpr int BS_OK = 0;
constexpr int BS_OUT_OF_RANGE = 1;   // index or range outside the held bytes
constexpr int BS_NO_MEMORY = 2;      // allocation failed
constexpr int BS_NOTHING_TO_CONVERT = 3;  // hex input shorter than 2 characters
constexpr int BS_FORMAT = 4;         // formatted text over 2047 characters, or a formatter error

// Largest text format() may produce.
constexpr int BS_FORMAT_MAX = 2047;

#if defined(__GNUC__) || defined(__clang__)
#define QVA_PRINTF_LIKE(fmt, args) __attribute__((format(printf, fmt, args)))
#else
#define QVA_PRINTF_LIKE(fmt, args)
#endif

class ByteString {
 public:
  // Construction and destruction are inline: every decoded value holds several.
  ByteString() : m_nLength(0), m_pBuffer(nullptr), m_nStatus(BS_OK) {}
  ByteString(const char* text);  // NOLINT: implicit from a text by design
  ByteString(const void* p, int n);
  ByteString(const ByteString& other);
  // Moving takes the buffer over; the source is left empty (buffer null).
  ByteString(ByteString&& other) noexcept;
  virtual ~ByteString() {
    if (m_pBuffer) std::free(m_pBuffer);  // most values never held a buffer
  }

  // Stores n bytes from p. A null p or negative n leaves the string empty and
  // returns 0; an allocation failure leaves it empty and returns 2.
  int setData(const void* p, int n);

  ByteString& operator=(const ByteString& other);
  ByteString& operator=(ByteString&& other) noexcept;
  ByteString& operator=(const char* text);
  ByteString& operator=(char byte);

  ByteString& operator+=(const ByteString& other);
  ByteString& operator+=(const char* text);
  ByteString& operator+=(char byte);
  // Appends n bytes from p; returns the status (0, or 2 with the old content kept).
  int append(const void* p, int n);

  int length() const { return m_nLength; }
  // The bytes, or the shared empty text when nothing is held.
  const unsigned char* data() const;
  // The buffer, or the shared empty text when no buffer exists.
  const char* c_str() const;
  // Writable access to the held bytes; null when the string holds none.
  unsigned char* buffer() { return m_nLength > 0 ? m_pBuffer : nullptr; }
  // True only when no buffer exists (a zero-length string with a buffer is not empty).
  bool isEmpty() const { return m_pBuffer == nullptr; }
  int status() const { return m_nStatus; }

  int getAt(int i, char* out) const;
  int setAt(int i, char b);
  void clear();
  // Overwrites the held bytes with zeros, keeping length and buffer.
  void zeroize();
  // Changes the length to n, keeping the first min(n, length) bytes and
  // zero-filling the rest; returns 0, 1 for a negative n, or 2.
  int resize(int n);

  bool operator==(const ByteString& other) const;
  bool operator==(const char* text) const;
  bool operator!=(const ByteString& other) const { return !(*this == other); }
  bool operator!=(const char* text) const { return !(*this == text); }

  // count bytes from start; a range outside the string gives an empty result
  // and status 1 in this string.
  ByteString mid(int start, int count) const;
  int find(const void* pattern, int n) const;
  int find(const char* text) const;

  // Two lower-case digits per byte, no separators.
  ByteString toHex() const;
  // Upper-case digits; a blank before every group-th digit and CR LF before
  // every line-th digit (the blank first when both apply).
  ByteString toHexString(int group, int line) const;
  // Pairs of hex digits to bytes; any other character counts as 0 and an odd
  // last character is ignored. Fewer than 2 characters: status 3.
  ByteString fromHexString() const;

  // printf-style; a result over 2047 characters (or a formatter error) returns
  // 4 and leaves the string and its status unchanged.
  int format(const char* fmt, ...) QVA_PRINTF_LIKE(2, 3);
  int formatV(const char* fmt, va_list args);
  // "YYYY/MM/DD hh:mm:ss" (UTC) of seconds since 1970-01-01; 4 when the
  // year falls outside 0000-9999.
  int format2K(std::int64_t secondsSinceEpoch);

 private:
  friend class ByteWriter;
  // Takes over a malloc'd block of n + 1 bytes whose byte n is zero.
  void adopt(unsigned char* block, int n);

  int m_nLength;
  unsigned char* m_pBuffer;
  mutable int m_nStatus;
};
