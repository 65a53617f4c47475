#include "ZENALib/ASN1Pkix/RCertificate.h"

const RField RCertificate::kFields[] = {
    R_FIELD(RCertificate, tbsCertificate, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RCertificate, signatureAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RCertificate, signature, ASN1_TAG_BITSTRING, R_MANDATORY),
};
const RSchema RCertificate::kSchema =
    R_SCHEMA(RCertificate, ASN1_TAG_SEQUENCE, R_EXACTLY(3, "The number of components is not 3."), kFields);

int RCertificate::fromASN1Object(const ByteString& bsData) {
  m_bsRawTBSCertificate.clear();
  const int rc = RStructure::fromASN1Object(bsData);
  if (rc == 0) RFirstComponentBytes(bsData, &m_bsRawTBSCertificate);
  return rc;
}
