#include "ZENALib/ASN1/ASN1IA5String.h"

#include <cstring>

namespace {

// Printable ASCII: no control characters and no DEL.
bool Accept(unsigned char c) { return c >= 0x20 && c <= 0x7E; }

}  // namespace

int ASN1IA5String::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1IA5String::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1IA5String", ASN1_TAG_IA5STRING, "TagType(%d)is not ASN1_TAG_IA5STRING");
}

int ASN1IA5String::checkValue(const unsigned char* p, int n) {
  return checkCharacters(__FILE__, __LINE__, p, n, Accept, "ASN1IA5String", "Value(%x)is not ASN1IA5String");
}
