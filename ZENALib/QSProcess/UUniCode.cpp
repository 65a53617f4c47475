#include "ZENALib/QSProcess/UUniCode.h"

#include <algorithm>
#include <iterator>

namespace {

const std::uint32_t kTable[] = {
#include "ZENALib/QSProcess/UUniCodeTable.inc"
};

// Appends the CP949 form of cp (or '?'); returns the worst result so far.
int Put(std::uint32_t cp, ByteString* out, int rc) {
  unsigned char b[2];
  int n = UUniCode::CodePoint2KSC(cp, b);
  if (n == 0) {
    b[0] = '?';
    n = 1;
    rc = std::max(rc, UUniCode::UUNI_UNMAPPED);
  }
  if (out->append(b, n) != BS_OK) return UUniCode::UUNI_MEMORY;
  return rc;
}

}  // namespace

int UUniCode::CodePoint2KSC(std::uint32_t cp, unsigned char out[2]) {
  if (cp < 0x80) {
    out[0] = static_cast<unsigned char>(cp);
    return 1;
  }
  if (cp > 0xFFFF) return 0;
  const std::uint32_t key = cp << 16;
  const std::uint32_t* it = std::lower_bound(std::begin(kTable), std::end(kTable), key);
  if (it == std::end(kTable) || (*it >> 16) != cp) return 0;
  out[0] = static_cast<unsigned char>(*it >> 8);
  out[1] = static_cast<unsigned char>(*it);
  return 2;
}

int UUniCode::Unicode2KSC(const unsigned char* p, int n, ByteString* out) {
  int rc = 0;
  int i = 0;
  for (; i + 1 < n && rc != UUNI_MEMORY; i += 2) rc = Put((std::uint32_t{p[i]} << 8) | p[i + 1], out, rc);
  if (i < n && rc != UUNI_MEMORY) rc = std::max(Put('?', out, rc), UUNI_MALFORMED);
  return rc;
}

int UUniCode::UCS42KSC(const unsigned char* p, int n, ByteString* out) {
  int rc = 0;
  int i = 0;
  for (; i + 3 < n && rc != UUNI_MEMORY; i += 4) {
    const std::uint32_t cp = (std::uint32_t{p[i]} << 24) | (std::uint32_t{p[i + 1]} << 16) |
                             (std::uint32_t{p[i + 2]} << 8) | p[i + 3];
    rc = Put(cp, out, rc);
  }
  if (i < n && rc != UUNI_MEMORY) rc = std::max(Put('?', out, rc), UUNI_MALFORMED);
  return rc;
}

int UUniCode::UTF82KSC(const unsigned char* p, int n, ByteString* out) {
  int rc = 0;
  int i = 0;
  while (i < n && rc != UUNI_MEMORY) {
    const unsigned char b = p[i];
    int len = 0;
    std::uint32_t cp = 0;
    if (b < 0x80) {
      len = 1;
      cp = b;
    } else if ((b & 0xE0) == 0xC0) {
      len = 2;
      cp = b & 0x1Fu;
    } else if ((b & 0xF0) == 0xE0) {
      len = 3;
      cp = b & 0x0Fu;
    } else if ((b & 0xF8) == 0xF0) {
      len = 4;
      cp = b & 0x07u;
    }
    bool ok = len > 0 && i + len <= n;
    for (int k = 1; ok && k < len; ++k) {
      if ((p[i + k] & 0xC0) != 0x80) ok = false;
      cp = (cp << 6) | (p[i + k] & 0x3Fu);
    }
    // Overlong forms and surrogates are malformed, as RFC 3629 section 3 says.
    static const std::uint32_t kMin[] = {0, 0, 0x80, 0x800, 0x10000};
    if (ok && (cp < kMin[len] || (cp >= 0xD800 && cp < 0xE000) || cp > 0x10FFFF)) ok = false;
    if (!ok) {
      rc = std::max(Put('?', out, rc), UUNI_MALFORMED);
      ++i;  // resynchronise on the next byte
      continue;
    }
    rc = Put(cp, out, rc);
    i += len;
  }
  return rc;
}
