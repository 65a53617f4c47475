#include "base/QSBase.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include "base/ByteReader.h"

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr unsigned char kInvalid = 0xFF;
constexpr int kPemLineLength = 64;

struct DecodeTable {
  unsigned char v[256];
  constexpr DecodeTable() : v() {
    for (int i = 0; i < 256; ++i) v[i] = kInvalid;
    for (int i = 0; i < 64; ++i) v[static_cast<unsigned char>(kAlphabet[i])] = static_cast<unsigned char>(i);
  }
};
constexpr DecodeTable kDecode;

// Two output characters for every 12-bit value, so a 3-byte group costs two lookups.
struct PairTable {
  char v[4096][2];
  constexpr PairTable() : v() {
    for (int i = 0; i < 4096; ++i) {
      v[i][0] = kAlphabet[i >> 6];
      v[i][1] = kAlphabet[i & 63];
    }
  }
};
constexpr PairTable kPairs;

}  // namespace

int QSBase::base64Encode(const ByteString& in, ByteString* out) {
  return base64Encode(in.data(), in.length(), out);
}

int QSBase::base64Encode(const void* p, int n, ByteString* out) {
  if (!out || n < 0 || (n > 0 && !p)) return BASE64_BAD_INPUT;
  const std::size_t len = static_cast<std::size_t>(n);
  const std::size_t outLen = (len + 2) / 3 * 4;
  if (outLen > static_cast<std::size_t>(INT32_MAX)) return BASE64_NO_MEMORY;
  ByteString result;
  if (result.resize(static_cast<int>(outLen)) != BS_OK) return BASE64_NO_MEMORY;
  const auto* s = static_cast<const unsigned char*>(p);
  unsigned char* d = result.buffer();
  std::size_t i = 0;
  for (; i + 3 <= len; i += 3, d += 4) {
    const unsigned v = (unsigned{s[i]} << 16) | (unsigned{s[i + 1]} << 8) | s[i + 2];
    std::memcpy(d, kPairs.v[v >> 12], 2);
    std::memcpy(d + 2, kPairs.v[v & 0xFFF], 2);
  }
  if (i < len) {
    const unsigned v = (unsigned{s[i]} << 16) | (i + 1 < len ? unsigned{s[i + 1]} << 8 : 0u);
    d[0] = kAlphabet[v >> 18];
    d[1] = kAlphabet[(v >> 12) & 63];
    d[2] = i + 1 < len ? kAlphabet[(v >> 6) & 63] : '=';
    d[3] = '=';
  }
  *out = std::move(result);
  return BASE64_OK;
}

int QSBase::base64Decode(const ByteString& in, ByteString* out) {
  return base64Decode(in.data(), in.length(), out);
}

int QSBase::base64Decode(const void* p, int n, ByteString* out) {
  if (!out || n < 0 || (n > 0 && !p)) return BASE64_BAD_INPUT;
  if (n % 4 != 0) return BASE64_BAD_INPUT;
  if (n == 0) {
    *out = "";
    return BASE64_OK;
  }
  const auto* s = static_cast<const unsigned char*>(p);
  const int pad = (s[n - 1] == '=') + (s[n - 1] == '=' && s[n - 2] == '=');
  const int outLen = n / 4 * 3 - pad;
  ByteString result;
  if (result.resize(outLen) != BS_OK) return BASE64_NO_MEMORY;
  unsigned char* d = result.buffer();
  const int full = (pad ? n - 4 : n);
  unsigned char bad = 0;
  int i = 0;
  for (; i < full; i += 4, d += 3) {
    const unsigned char a = kDecode.v[s[i]], b = kDecode.v[s[i + 1]], c = kDecode.v[s[i + 2]],
                        e = kDecode.v[s[i + 3]];
    bad |= a | b | c | e;
    const unsigned v = (unsigned{a} << 18) | (unsigned{b} << 12) | (unsigned{c} << 6) | e;
    d[0] = static_cast<unsigned char>(v >> 16);
    d[1] = static_cast<unsigned char>(v >> 8);
    d[2] = static_cast<unsigned char>(v);
  }
  // An invalid character has all bits set, which no valid 6-bit value has in bit 7.
  if (bad & 0x80) return BASE64_BAD_INPUT;
  if (pad) {
    const unsigned char a = kDecode.v[s[i]], b = kDecode.v[s[i + 1]];
    const unsigned char c = pad == 1 ? kDecode.v[s[i + 2]] : 0;
    if ((a | b | c) & 0x80) return BASE64_BAD_INPUT;
    const unsigned v = (unsigned{a} << 18) | (unsigned{b} << 12) | (unsigned{c} << 6);
    d[0] = static_cast<unsigned char>(v >> 16);
    if (pad == 1) d[1] = static_cast<unsigned char>(v >> 8);
  }
  *out = std::move(result);
  return BASE64_OK;
}

const char* QSBase::pemLabel(int type) {
  switch (type) {
    case PEM_CERTIFICATE: return "CERTIFICATE";
    case PEM_WTLS_CERTIFICATE: return "WTLS CERTIFICATE";
    case PEM_RSA_PRIVATE_KEY: return "RSA PRIVATE KEY";
    case PEM_PRIVATE_KEY: return "PRIVATE KEY";
    case PEM_ENCRYPTED_PRIVATE_KEY: return "ENCRYPTED PRIVATE KEY";
    case PEM_X509_CRL: return "X509 CRL";
    case PEM_PKCS7: return "PKCS7";
    case PEM_CERTIFICATE_REQUEST: return "NEW CERTIFICATE REQUEST";
    case PEM_PKCS7_2: return "PKCS7";
    default: return nullptr;
  }
}

int QSBase::pemEncode(int type, const ByteString& der, ByteString* out) {
  if (!out) return PEM_ENCODE_FAIL;
  ByteString b64;
  if (base64Encode(der, &b64) != BASE64_OK) return PEM_ENCODE_FAIL;
  const char* label = pemLabel(type);
  ByteString header, footer;
  if (label && (header.format("-----BEGIN %s-----", label) != BS_OK ||
                footer.format("-----END %s-----", label) != BS_OK))
    return PEM_ENCODE_FAIL;

  const std::size_t n = static_cast<std::size_t>(b64.length());
  const std::size_t lines = (n + kPemLineLength - 1) / kPemLineLength;
  ByteWriter w;
  w.reserve(static_cast<std::size_t>(header.length() + footer.length()) + n + 2 * lines + 4);
  if (label) w.bytes(header).bytes("\r\n", 2);
  for (std::size_t off = 0; off < n; off += kPemLineLength) {
    if (off) w.bytes("\r\n", 2);
    w.bytes(b64.data() + off, n - off < kPemLineLength ? n - off : kPemLineLength);
  }
  if (label) w.bytes("\r\n", 2).bytes(footer);
  return w.finish(out) == BS_OK ? PEM_OK : PEM_ENCODE_FAIL;
}

int QSBase::pemDecode(int type, const ByteString& text, ByteString* der) {
  if (!der) return PEM_NO_MEMORY;
  const char* label = pemLabel(type);
  ByteString header, footer;
  if (label && (header.format("-----BEGIN %s-----", label) != BS_OK ||
                footer.format("-----END %s-----", label) != BS_OK))
    return PEM_NO_MEMORY;

  ByteReader body(text);
  if (label) {
    const int at = text.find(header.c_str());
    if (at < 0) return PEM_NO_HEADER;
    if (at > text.length() - header.length()) return PEM_BEYOND_TEXT;
    // The body starts right after a header that opens the text; text in front
    // of the header shifts it and the decode then fails.
    body.skip(static_cast<std::size_t>(header.length()));
    ByteString rest(body.data(), static_cast<int>(body.remaining()));
    const int end = rest.find(footer.c_str());
    if (end < 0) return PEM_NO_FOOTER;
    if (end > rest.length() - footer.length()) return PEM_BEYOND_TEXT;
    body = ByteReader(body.data(), static_cast<std::size_t>(end));
  }

  ByteString compact;
  if (compact.resize(static_cast<int>(body.remaining())) != BS_OK) return PEM_NO_MEMORY;
  int kept = 0;
  for (std::size_t i = 0; i < body.remaining(); ++i) {
    const unsigned char c = body.data()[i];
    if (c != '\r' && c != '\n' && c != ' ') compact.buffer()[kept++] = c;
  }
  if (base64Decode(compact.data(), kept, der) != BASE64_OK) return PEM_BASE64_FAIL;
  return PEM_OK;
}
