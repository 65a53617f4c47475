#include "ZENALib/ASN1/ASN1Integer.h"

#include <cstdint>

#include "base/ByteReader.h"
#include "ZENALib/ASN1/ASN1Codes.h"
#include "ZENALib/ASN1/ASN1Messages.h"

ASN1Integer::ASN1Integer(int nValue) : ASN1Integer() { setInteger(nValue); }

int ASN1Integer::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1Integer::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1Integer", ASN1_TAG_INTEGER, "TagType(%d)is not ASN1_TAG_INTEGER");
}

void ASN1Integer::EncodeNative(int nValue, ByteString* pOut) {
  // Minimal two's complement: drop a leading octet while it only repeats the
  // sign bit of the next one.
  const std::uint32_t u = static_cast<std::uint32_t>(nValue);
  const unsigned char octets[4] = {static_cast<unsigned char>(u >> 24), static_cast<unsigned char>(u >> 16),
                                   static_cast<unsigned char>(u >> 8), static_cast<unsigned char>(u)};
  int start = 0;
  while (start < 3 && ((octets[start] == 0x00 && !(octets[start + 1] & 0x80)) ||
                       (octets[start] == 0xFF && (octets[start + 1] & 0x80))))
    ++start;
  pOut->setData(octets + start, 4 - start);
}

int ASN1Integer::DecodeNative(const ByteString& bsValue) {
  const unsigned char* p = bsValue.data();
  int n = bsValue.length();
  if (n == 0 || n > 5) return 0;
  std::int64_t value = 0;
  if (p[0] < 0x80) {
    for (int i = 0; i < n; ++i) value = (value << 8) | p[i];
  } else {
    if (p[0] == 0xFF && n > 1) {
      ++p;
      --n;
    }
    for (int i = 0; i < n; ++i) value = (value << 8) | p[i];
    value -= static_cast<std::int64_t>(1) << (8 * n);
  }
  // Values wider than 32 bits keep their low 32 bits.
  return static_cast<int>(static_cast<std::uint32_t>(value));
}

void ASN1Integer::setInteger(int nValue) { EncodeNative(nValue, &m_bsValue.replace()); }

int ASN1Integer::setInteger(const void* pData, int nLength, int nSign) {
  if (!pData || nLength <= 0) {
    m_bsValue.replace().clear();
    return 0;
  }
  const unsigned char* p = static_cast<const unsigned char*>(pData);
  ByteWriter w;
  w.reserve(static_cast<std::size_t>(nLength) + 1);
  if (nSign == 0 && (p[0] & 0x80)) w.u8(0x00);         // unsigned magnitude
  else if (nSign == -1 && !(p[0] & 0x80)) w.u8(0xFF);  // negative number
  w.bytes(p, static_cast<std::size_t>(nLength));
  if (w.finish(&m_bsValue.replace()) != BS_OK)
    return ASN1_FAIL("ASN1Integer", "setInteger", "m_bsValue", asn1_code::kValueNoMemory, asn1_msg::kMemoryError);
  return 0;
}

int ASN1Integer::setInteger(const ByteString& bsData, int nSign) {
  return setInteger(bsData.data(), bsData.length(), nSign);
}

int ASN1Integer::getInteger() const { return DecodeNative(getValue()); }
