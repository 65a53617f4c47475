// Appending a ByteWriter's bytes to a ByteString that may already hold some.
#pragma once

#include "base/ByteReader.h"
#include "base/ByteString.h"

// Moves what w holds to the end of *dst (without a copy while dst is empty)
// and returns the status; dst is unchanged on failure.
inline int AppendWritten(ByteWriter* w, ByteString* dst) {
  if (dst->length() == 0) return w->finish(dst);
  ByteString piece;
  const int rc = w->finish(&piece);
  return rc != BS_OK ? rc : dst->append(piece.data(), piece.length());
}
