// The round-trip check of the structure-class fuzz targets.
#pragma once

#include <cstdlib>

#include "base/ByteString.h"

// Decodes der into obj; when it decodes, its encoding must be a fixed point:
// decoding that encoding into a fresh object and encoding again gives the
// same bytes (abort otherwise). Returns whether der decoded and encoded.
template <typename T>
bool PkixStable(const ByteString& der, T& obj) {
  if (obj.fromASN1Object(der) != 0) return false;
  const ByteString once = obj.toASN1Object();
  if (obj.getErrorCode() != 0) return false;  // members a decoder accepts but cannot write (empty open types)
  T again;
  if (again.fromASN1Object(once) != 0) std::abort();
  if (again.toASN1Object() != once) std::abort();
  return true;
}
