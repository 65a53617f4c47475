#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"

#include <cstdint>
#include <cstring>

#include "base/ByteReader.h"
#include "ZENALib/ASN1/ASN1Codes.h"
#include "ZENALib/ASN1/ASN1Messages.h"

namespace {

const char kClass[] = "ASN1ObjectIdentifier";
constexpr int kMaxArcs = 19;
constexpr int kMaxSubIdentifiers = 19;
// Largest arc that getOID can read back: four base-128 octets.
constexpr std::uint64_t kMaxArc = 0x0FFFFFFF;

// Writes v in decimal (no terminator); returns the digits written. Texts are
// built by hand: this runs for every identifier of every decoded certificate.
int WriteDecimal(char* out, std::uint32_t v) {
  char digits[10];
  int n = 0;
  do {
    digits[n++] = static_cast<char>('0' + v % 10);
    v /= 10;
  } while (v);
  for (int i = 0; i < n; ++i) out[i] = digits[n - 1 - i];
  return n;
}

}  // namespace

int ASN1ObjectIdentifier::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1ObjectIdentifier::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, kClass, ASN1_TAG_OID, "TagType(%d) is not ASN1_TAG_OID");
}

int ASN1ObjectIdentifier::setOID(const char* szText) {
  return setOID(szText, szText ? static_cast<int>(std::strlen(szText)) : 0);
}

int ASN1ObjectIdentifier::setOID(const char* szText, int nLength) {
  if (!szText || nLength < 0) nLength = 0;
  std::uint32_t arcs[kMaxArcs];
  int count = 0;
  bool tooLarge = false;
  for (int i = 0; i < nLength;) {
    if (szText[i] < '0' || szText[i] > '9') {
      ++i;
      continue;
    }
    std::uint64_t arc = 0;
    for (; i < nLength && szText[i] >= '0' && szText[i] <= '9'; ++i) {
      arc = arc * 10 + static_cast<unsigned>(szText[i] - '0');
      if (arc > kMaxArc) {
        tooLarge = true;
        arc = kMaxArc;
      }
    }
    if (count < kMaxArcs) arcs[count] = static_cast<std::uint32_t>(arc);
    ++count;
  }
  if (count > kMaxArcs || count < 2 || tooLarge) {
    return failText(__FILE__, __LINE__, kClass, "setOID", "nOID",
                    count < 2 ? asn1_code::kOidTooShort : asn1_code::kOidArc, asn1_msg::kOidValue, szText, nLength);
  }
  unsigned char out[1 + (kMaxArcs - 2) * 5];
  // The first two arcs share one octet (arcs below 2.176 only).
  out[0] = static_cast<unsigned char>(40 * arcs[0] + arcs[1]);
  int n = 1;
  for (int i = 2; i < count; ++i) n += putBase128(out + n, arcs[i]);
  m_bsValue.replace().setData(out, n);
  return 0;
}

ByteString ASN1ObjectIdentifier::getOID(char cSeparator) {
  const unsigned char* p = valueData();
  const int n = valueLength();
  if (n == 0) {
    ASN1_FAIL(kClass, "getOID", "nOID", asn1_code::kOidTooShort, asn1_msg::kOidFormat);
    return ByteString();
  }
  char text[kMaxSubIdentifiers * 12 + 16];
  int used = 0;
  int count = 0;
  for (int pos = 0; pos < n; ++count) {
    int sub = 0;
    const int octets = count < kMaxSubIdentifiers ? GetHighTag(p + pos, n - pos, &sub, false) : 0;
    if (!octets) {
      ASN1_FAIL(kClass, "getOID", "nOID", asn1_code::kOidArc, asn1_msg::kOidFormat);
      return ByteString();
    }
    pos += octets;
    // The first sub-identifier always splits by 40.
    if (count == 0) {
      used += WriteDecimal(text + used, static_cast<std::uint32_t>(sub / 40));
      text[used++] = cSeparator;
      used += WriteDecimal(text + used, static_cast<std::uint32_t>(sub % 40));
    } else {
      text[used++] = cSeparator;
      used += WriteDecimal(text + used, static_cast<std::uint32_t>(sub));
    }
  }
  return ByteString(text, used);
}
