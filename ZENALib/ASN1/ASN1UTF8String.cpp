#include "ZENALib/ASN1/ASN1UTF8String.h"

#include "base/ByteReader.h"

int ASN1UTF8String::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1UTF8String::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1UTF8String", ASN1_TAG_UTF8STRING,
                     "Tag(%0x2d) is not ASN1_TAG_UTF8STRING");
}

ByteString& ASN1UTF8String::getUCS2Value() {
  const unsigned char* p = valueData();
  const int n = valueLength();
  ByteWriter w;
  w.reserve(static_cast<std::size_t>(n) * 2);
  for (int i = 0; i < n;) {
    const unsigned char c = p[i];
    if (c < 0x80) {
      w.u8(c).u8(0);
      ++i;
      continue;
    }
    // Only three-octet sequences for Hangul syllables are converted; every
    // other octet becomes one '?'.
    if ((c & 0xF0) == 0xE0 && i + 2 < n && (p[i + 1] & 0xC0) == 0x80 && (p[i + 2] & 0xC0) == 0x80) {
      const unsigned unit = ((c & 0x0Fu) << 12) | ((p[i + 1] & 0x3Fu) << 6) | (p[i + 2] & 0x3Fu);
      if (unit >= 0xAC00 && unit <= 0xD7A3) {
        w.u8(static_cast<std::uint8_t>(unit & 0xFF)).u8(static_cast<std::uint8_t>(unit >> 8));
        i += 3;
        continue;
      }
    }
    w.u8('?').u8(0);
    ++i;
  }
  if (w.finish(&m_bsEncoded) != BS_OK) m_bsEncoded.clear();
  return m_bsEncoded;
}
