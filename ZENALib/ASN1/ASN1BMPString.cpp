#include "ZENALib/ASN1/ASN1BMPString.h"

ASN1BMPString::ASN1BMPString() { m_ucPrimitiveTag = ASN1_TAG_BMPSTRING; }

int ASN1BMPString::fromASN1Object(const ByteString& bsData) {
  return decodeTyped(__FILE__, __LINE__, bsData, "ASN1BMPString", ASN1_TAG_BMPSTRING, "TagType(%d) is not ASN1_TAG_BMPSTRING");
}
