#include "ZENALib/ASN1Pkix/RCertificateList.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RCertificateList);
const RSchema RCertificateList::kSchema =
    R_SCHEMA_HOOKED(RCertificateList, ASN1_TAG_SEQUENCE, R_EXACTLY(3, r_msg::kNot3), kFields);

int RCertificateList::fromASN1View(const unsigned char* pData, int nData) {
  m_bsRawTBSCertList.replace().clear();
  const int rc = RStructure::fromASN1View(pData, nData);
  if (rc != 0) m_bsRawTBSCertList.replace().clear();
  return rc;
}

void RCertificateList::componentDecoded(const ASN1Object& member, const unsigned char* p, int n) {
  // The signed part, kept once as it was received.
  if (&member != &m_tbsCertList) return;
  if (m_bKeepViews)
    m_bsRawTBSCertList.setView(p, n);
  else
    m_bsRawTBSCertList.replace().setData(p, n);
}
