#include "ZENALib/ASN1/ASN1T61String.h"

int ASN1T61String::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1T61String::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1T61String", ASN1_TAG_T61STRING, "TagType(%d) is not ASN1_TAG_T61STRING");
}
