#include "ZENALib/ASN1/ASN1BMPString.h"

int ASN1BMPString::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1BMPString::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1BMPString", ASN1_TAG_BMPSTRING, "TagType(%d) is not ASN1_TAG_BMPSTRING");
}
