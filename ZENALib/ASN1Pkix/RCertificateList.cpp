#include "ZENALib/ASN1Pkix/RCertificateList.h"

const RField RCertificateList::kFields[] = {
    R_FIELD(RCertificateList, tbsCertList, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RCertificateList, signatureAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RCertificateList, signature, ASN1_TAG_BITSTRING, R_MANDATORY),
};
const RSchema RCertificateList::kSchema =
    R_SCHEMA(RCertificateList, ASN1_TAG_SEQUENCE, R_EXACTLY(3, "The number of components is not 3."), kFields);

int RCertificateList::fromASN1Object(const ByteString& bsData) {
  m_bsRawTBSCertList.clear();
  const int rc = RStructure::fromASN1Object(bsData);
  if (rc == 0) RFirstComponentBytes(bsData, &m_bsRawTBSCertList);
  return rc;
}
