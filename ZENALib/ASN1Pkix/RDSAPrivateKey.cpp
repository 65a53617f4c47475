#include "ZENALib/ASN1Pkix/RDSAPrivateKey.h"

const RField RDSAPrivateKey::kFields[] = {
    R_FIELD(RDSAPrivateKey, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RDSAPrivateKey, p, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RDSAPrivateKey, q, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RDSAPrivateKey, g, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RDSAPrivateKey, y, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RDSAPrivateKey, x, ASN1_TAG_INTEGER, R_MANDATORY),
};
const RSchema RDSAPrivateKey::kSchema =
    R_SCHEMA(RDSAPrivateKey, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);

RDSAPrivateKey::RDSAPrivateKey() {
  m_x.setSecret(true);
}
