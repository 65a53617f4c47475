#include "ZENALib/ASN1/ASN1Null.h"

int ASN1Null::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1Null::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1Null", ASN1_TAG_NULLTAG, "TagType(%d)is not ASN1_TAG_NULLTAG");
}
