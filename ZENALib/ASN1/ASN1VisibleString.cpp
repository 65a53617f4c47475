#include "ZENALib/ASN1/ASN1VisibleString.h"

#include <cstring>

namespace {

// Letters, digits, space and punctuation, except # $ [ ] ` { }.
bool Accept(unsigned char c) {
  if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) return true;
  return c != 0 && std::strchr(" !\"%&'()*+,-./:;<=>?@\\^_|~", c) != nullptr;
}

}  // namespace

int ASN1VisibleString::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1VisibleString::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1VisibleString", ASN1_TAG_VISIBLESTRING, "Tag(%0x2d) is not ASN1_TAG_VISIBLESTRING");
}

int ASN1VisibleString::checkValue(const unsigned char* p, int n) {
  return checkCharacters(__FILE__, __LINE__, p, n, Accept, "ASN1VisibleString", "Char (%0x2d)does not in ASN1_TAG_VISIBLESTRING");
}
