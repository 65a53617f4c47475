// CLEncoder: a value that knows the length of its encoding and writes itself
// into a ByteWriter.
//
// The request path nests item list, roaming message, record and frame. Each
// layer wraps the one inside it as an encoder instead of a finished buffer,
// so the outermost writer reserves the final size once and every byte of the
// payload is written once, front to back.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/ByteReader.h"
#include "base/ByteString.h"

// Largest encoding one ByteString can hold.
constexpr std::size_t kMaxEncodedLength = INT32_MAX;

class CLEncoder {
 public:
  virtual ~CLEncoder() = default;

  // Exactly the number of bytes Encode writes.
  virtual std::size_t EncodedLength() const = 0;
  // Writes the encoding; failures stay in the writer's sticky status.
  virtual void Encode(ByteWriter* w) const = 0;

  bool Fits() const { return EncodedLength() <= kMaxEncodedLength; }

 protected:
  CLEncoder() = default;
  CLEncoder(const CLEncoder&) = default;
  CLEncoder& operator=(const CLEncoder&) = default;
};

// The bytes of a ByteString, as they are. Borrows the string: it must outlive
// the encoder.
class CLBytesEncoder final : public CLEncoder {
 public:
  explicit CLBytesEncoder(const ByteString& bytes) : m_bytes(bytes) {}
  std::size_t EncodedLength() const override { return static_cast<std::size_t>(m_bytes.length()); }
  void Encode(ByteWriter* w) const override { w->bytes(m_bytes); }

 private:
  const ByteString& m_bytes;
};

// Writes value into a fresh buffer of exactly its length and appends that to
// *dst (handing the buffer over without a copy while dst is empty). Returns
// the store status; dst is unchanged on failure.
int AppendEncoded(const CLEncoder& value, ByteString* dst);
