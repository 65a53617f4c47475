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
  if (rc != 0) return rc;
  // The first component of the outer element, borrowed in place (the base
  // has already checked both headers).
  RElementHeader outer{}, tbs{};
  const unsigned char* p = bsData.data();
  if (RReadHeader(p, bsData.length(), &outer) == 0 &&
      RReadHeader(p + outer.headerLength, bsData.length() - outer.headerLength, &tbs) == 0)
    m_bsRawTBSCertList.setData(p + outer.headerLength, tbs.totalLength);
  return 0;
}
