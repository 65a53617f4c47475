#include "ZENALib/ASN1/ASN1PrintableString.h"

#include <cstring>

namespace {

bool Accept(unsigned char c) {
  if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) return true;
  return c != 0 && std::strchr(" '()+,-./:=?", c) != nullptr;
}

}  // namespace

int ASN1PrintableString::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1PrintableString::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1PrintableString", ASN1_TAG_PRINTABLESTRING, "TagType(%d)is not ASN1_TAG_PRINTABLESTRING");
}

int ASN1PrintableString::checkValue(const unsigned char* p, int n) {
  // The check is recorded under the class name "ASN1IA5String", as the library has always done.
  return checkCharacters(__FILE__, __LINE__, p, n, Accept, "ASN1IA5String", "Value(%x)is not ASN1PrintableString");
}
