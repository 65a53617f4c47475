#include "ZENALib/ASN1/ASN1Set.h"

ASN1Set::ASN1Set() : ASN1Sequence(ASN1_TAG_SET) {}

int ASN1Set::fromASN1Object(const ByteString& bsData) {
  return decodeConstructed(__FILE__, __LINE__, bsData, "ASN1Set", ASN1_TAG_SET, "TagType(%d)is not ASN1_TAG_SET");
}
