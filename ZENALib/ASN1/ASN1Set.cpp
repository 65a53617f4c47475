#include "ZENALib/ASN1/ASN1Set.h"

ASN1Set::ASN1Set() : ASN1Sequence(ASN1_TAG_SET) {}

int ASN1Set::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1Set::fromASN1View(const unsigned char* pData, int nData) {
  return decodeConstructed(__FILE__, __LINE__, pData, nData, "ASN1Set", ASN1_TAG_SET, "TagType(%d)is not ASN1_TAG_SET");
}
