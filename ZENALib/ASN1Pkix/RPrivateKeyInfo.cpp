#include "ZENALib/ASN1Pkix/RPrivateKeyInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RPrivateKeyInfo::kFields[] = {
    R_FIELD(RPrivateKeyInfo, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RPrivateKeyInfo, privateKeyAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RPrivateKeyInfo, privateKey, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD_IMPLICIT(RPrivateKeyInfo, attributes, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RPrivateKeyInfo, publicKey, 1, R_OPTIONAL),
};
const RSchema RPrivateKeyInfo::kSchema =
    R_SCHEMA(RPrivateKeyInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(3, r_msg::kAtLeast3), kFields);

RPrivateKeyInfo::RPrivateKeyInfo() {
  m_privateKey.setSecret(true);
}
