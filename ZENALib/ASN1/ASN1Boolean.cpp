#include "ZENALib/ASN1/ASN1Boolean.h"

ASN1Boolean::ASN1Boolean(bool bValue) : ASN1Boolean() { setBoolean(bValue); }

int ASN1Boolean::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1Boolean::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1Boolean", ASN1_TAG_BOOLEAN, "TagType(%d) is not ASN1_TAG_BOOLEAN");
}

void ASN1Boolean::setBoolean(bool bValue) {
  const unsigned char octet = bValue ? 0xFF : 0x00;
  m_bsValue.replace().setData(&octet, 1);
}

bool ASN1Boolean::getBoolean() const { return valueLength() > 0 && valueData()[0] != 0; }
