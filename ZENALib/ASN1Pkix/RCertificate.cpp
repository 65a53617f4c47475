#include "ZENALib/ASN1Pkix/RCertificate.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RCertificate);
const RSchema RCertificate::kSchema =
    R_SCHEMA_HOOKED(RCertificate, ASN1_TAG_SEQUENCE, R_EXACTLY(3, r_msg::kNot3), kFields);

int RCertificate::fromASN1View(const unsigned char* pData, int nData) {
  m_bsRawTBSCertificate.replace().clear();
  const int rc = RStructure::fromASN1View(pData, nData);
  if (rc != 0) m_bsRawTBSCertificate.replace().clear();
  return rc;
}

void RCertificate::componentDecoded(const ASN1Object& member, const unsigned char* p, int n) {
  // The signed part, kept once as it was received.
  if (&member != &m_tbsCertificate) return;
  if (m_bKeepViews)
    m_bsRawTBSCertificate.setView(p, n);
  else
    m_bsRawTBSCertificate.replace().setData(p, n);
}
