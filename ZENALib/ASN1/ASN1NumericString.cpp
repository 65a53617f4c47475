#include "ZENALib/ASN1/ASN1NumericString.h"

#include <cstring>

namespace {

bool Accept(unsigned char c) { return (c >= '0' && c <= '9') || c == ' '; }

}  // namespace

int ASN1NumericString::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1NumericString::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1NumericString", ASN1_TAG_NUMERICSTRING, "TagType(%d)is not ASN1_TAG_NUMERICSTRING");
}

int ASN1NumericString::checkValue(const unsigned char* p, int n) {
  // The check is recorded under the class name "ASN1IA5String", as the library has always done.
  return checkCharacters(__FILE__, __LINE__, p, n, Accept, "ASN1IA5String", "Value(%x)is not ASN1NumericString");
}
