#include "ZENALib/ASN1/ASN1Enumerated.h"

#include "ZENALib/ASN1/ASN1Integer.h"

ASN1Enumerated::ASN1Enumerated(int nValue) : ASN1Enumerated() { setEnumerated(nValue); }

int ASN1Enumerated::fromASN1Object(const ByteString& bsData) { return fromASN1View(viewOf(bsData), bsData.length()); }

int ASN1Enumerated::fromASN1View(const unsigned char* pData, int nData) {
  return decodeTyped(__FILE__, __LINE__, pData, nData, "ASN1Enumerated", ASN1_TAG_ENUMERATED,
                     "TagType(%d) is not ASN1_TAG_ENUMERATED.");
}

void ASN1Enumerated::setEnumerated(int nValue) { ASN1Integer::EncodeNative(nValue, &m_bsValue.replace()); }

int ASN1Enumerated::getEnumerated() const { return ASN1Integer::DecodeNative(getValue()); }
