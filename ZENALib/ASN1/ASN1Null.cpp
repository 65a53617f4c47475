#include "ZENALib/ASN1/ASN1Null.h"

ASN1Null::ASN1Null() { m_ucPrimitiveTag = ASN1_TAG_NULLTAG; }

int ASN1Null::fromASN1Object(const ByteString& bsData) {
  return decodeTyped(__FILE__, __LINE__, bsData, "ASN1Null", ASN1_TAG_NULLTAG, "TagType(%d)is not ASN1_TAG_NULLTAG");
}
