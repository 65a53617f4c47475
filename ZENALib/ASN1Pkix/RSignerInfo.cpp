#include "ZENALib/ASN1Pkix/RSignerInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

#include "base/ByteReader.h"

R_FIELDS(RSignerInfo);
const RSchema RSignerInfo::kSchema =
    R_SCHEMA_HOOKED(RSignerInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(5, r_msg::kAtLeast5), kFields);

int RSignerInfo::fromASN1View(const unsigned char* pData, int nData) {
  m_bsRawSignedAttrs.clear();
  const int rc = RStructure::fromASN1View(pData, nData);
  if (rc != 0) m_bsRawSignedAttrs.clear();
  return rc;
}

void RSignerInfo::componentDecoded(const ASN1Object& member, const unsigned char* p, int n) {
  if (&member != &m_signedAttrs) return;
  // The [0] element as it stands, given back the SET identifier it is signed under.
  RElementHeader h{};
  if (RReadHeader(p, n, &h) != 0) return;
  ByteWriter w;
  w.u8(ASN1_CONSTRUCTED | ASN1_TAG_SET).bytes(p + h.idLength, static_cast<std::size_t>(h.totalLength - h.idLength));
  w.finish(&m_bsRawSignedAttrs);
}
