#include "ZENALib/ASN1Pkix/RDSAPrivateKey.h"

R_FIELDS(RDSAPrivateKey);
const RSchema RDSAPrivateKey::kSchema =
    R_SCHEMA(RDSAPrivateKey, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);

RDSAPrivateKey::RDSAPrivateKey() {
  m_x.setSecret(true);
}
