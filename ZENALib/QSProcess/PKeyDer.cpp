#include "ZENALib/QSProcess/PKeyDer.h"

namespace pkeyder {

// DER only: a low tag number (the key and certificate outlines use no
// other) and a definite length of at most four octets; every count is
// checked against what is left, so nothing is read past n.
bool Read(const unsigned char* p, int n, Element* out) {
  if (!p || n < 2 || (p[0] & 0x1F) == 0x1F) return false;
  int header = 2;
  unsigned int length = p[1];
  if (length & 0x80) {
    const int octets = static_cast<int>(length & 0x7F);
    if (octets < 1 || octets > 4 || n < 2 + octets) return false;
    length = 0;
    for (int i = 0; i < octets; ++i) length = (length << 8) | p[2 + i];
    header += octets;
  }
  if (length > static_cast<unsigned int>(n - header)) return false;
  out->p = p;
  out->n = header + static_cast<int>(length);
  out->header = header;
  out->first = p[0];
  return true;
}

int Components(const Element& outer, Element* out, int nMax) {
  const unsigned char* p = outer.content();
  int left = outer.contentLength(), count = 0;
  while (left > 0 && count < nMax) {
    if (!Read(p, left, &out[count])) return -1;
    p += out[count].n;
    left -= out[count].n;
    ++count;
  }
  return left == 0 || count == nMax ? count : -1;
}

bool CertificateSPKI(const ByteString& bsCert, Element* out) {
  Element cert, parts[3], tbs[8];
  if (!Read(bsCert.data(), bsCert.length(), &cert) || cert.first != 0x30) return false;
  if (Components(cert, parts, 3) != 3 || parts[0].first != 0x30) return false;
  const int count = Components(parts[0], tbs, 8);
  // [0] version, serialNumber, signature, issuer, validity, subject, spki.
  const int at = count > 0 && tbs[0].first == 0xA0 ? 6 : 5;
  if (count <= at || tbs[at].first != 0x30) return false;
  *out = tbs[at];
  return true;
}

int IntegerBytes(const Element& integer) {
  const unsigned char* p = integer.content();
  int n = integer.contentLength();
  while (n > 1 && *p == 0) ++p, --n;
  return n;
}

ByteString Sequence(const ByteString& contents) {
  unsigned char head[6] = {0x30};
  int h = 1;
  const unsigned int len = static_cast<unsigned int>(contents.length());
  if (len < 0x80) {
    head[h++] = static_cast<unsigned char>(len);
  } else {
    int bytes = len > 0xFFFFFF ? 4 : len > 0xFFFF ? 3 : len > 0xFF ? 2 : 1;
    head[h++] = static_cast<unsigned char>(0x80 | bytes);
    while (bytes--) head[h++] = static_cast<unsigned char>(len >> (8 * bytes));
  }
  ByteString out(head, h);
  out += contents;
  return out;
}

}  // namespace pkeyder
