#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RPrivateKeyInfo);
const RSchema RPrivateKeyInfo::kSchema =
    R_SCHEMA(RPrivateKeyInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(3, r_msg::kAtLeast3), kFields);

RPrivateKeyInfo::RPrivateKeyInfo() {
  m_privateKey.setSecret(true);
}
