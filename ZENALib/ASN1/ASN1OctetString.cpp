#include "ZENALib/ASN1/ASN1OctetString.h"

int ASN1OctetString::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1OctetString::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1OctetString", ASN1_TAG_OCTETSTRING, "TagType(%d)is not ASN1_TAG_OCTETSTRING");
}
