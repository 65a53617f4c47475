#include "libaibase/clencoder.h"

int AppendEncoded(const CLEncoder& value, ByteString* dst) {
  const std::size_t held = static_cast<std::size_t>(dst->length());
  const std::size_t length = value.EncodedLength();
  // Refused before any size is added up: the sum could not be held anyway.
  if (length > kMaxEncodedLength - held) return BS_NO_MEMORY;
  ByteWriter w;
  w.reserve(held + length);
  if (held > 0) w.bytes(*dst);
  if (w.status() == BS_OK) value.Encode(&w);
  return w.finish(dst);
}
