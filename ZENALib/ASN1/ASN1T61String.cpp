#include "ZENALib/ASN1/ASN1T61String.h"

ASN1T61String::ASN1T61String() { m_ucPrimitiveTag = ASN1_TAG_T61STRING; }

int ASN1T61String::fromASN1Object(const ByteString& bsData) {
  return decodeTyped(__FILE__, __LINE__, bsData, "ASN1T61String", ASN1_TAG_T61STRING, "TagType(%d) is not ASN1_TAG_T61STRING");
}
