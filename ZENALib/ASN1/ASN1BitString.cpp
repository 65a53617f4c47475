#include "ZENALib/ASN1/ASN1BitString.h"

#include "base/ByteReader.h"
#include "ZENALib/ASN1/ASN1Codes.h"
#include "ZENALib/ASN1/ASN1Messages.h"

int ASN1BitString::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1BitString::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1BitString", ASN1_TAG_BITSTRING,
                     "TagType(%d) is not ASN1_TAG_BITSTRING");
}

int ASN1BitString::setBitString(const ByteString& bsData, int bNamedBitList) {
  const unsigned char* p = bsData.data();
  int n = bsData.length();
  unsigned char unused = 0;
  if (bNamedBitList == 1 && n > 0) {
    // A named bit list carries no trailing zero bits (X.690 11.2.2).
    while (n > 0 && p[n - 1] == 0) --n;
    if (n == 0)
      return ASN1_FAIL("ASN1BitString", "setBitString", "nLen", asn1_code::kBadValue, "The input data value is null.");
    for (unsigned char last = p[n - 1]; !(last & 1); last >>= 1) ++unused;
  }
  ByteWriter w;
  w.reserve(static_cast<std::size_t>(n) + 1);
  w.u8(unused).bytes(p, static_cast<std::size_t>(n));
  if (w.finish(&m_bsValue.replace()) != BS_OK)
    return ASN1_FAIL("ASN1BitString", "setBitString", "m_bsValue", asn1_code::kValueNoMemory, asn1_msg::kMemoryError);
  return 0;
}

ByteString ASN1BitString::getBitString(int* pnUnusedBits) {
  if (valueLength() == 0) {
    ASN1_FAIL("ASN1BitString", "getBitString", "m_bsValue", asn1_code::kBitStringEmpty, asn1_msg::kBitStringEmpty);
    return ByteString();
  }
  if (pnUnusedBits) *pnUnusedBits = valueData()[0];
  return ByteString(valueData() + 1, valueLength() - 1);
}
