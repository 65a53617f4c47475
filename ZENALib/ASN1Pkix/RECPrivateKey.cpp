#include "ZENALib/ASN1Pkix/RECPrivateKey.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RECPrivateKey);
const RSchema RECPrivateKey::kSchema =
    R_SCHEMA(RECPrivateKey, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2Component), kFields);

RECPrivateKey::RECPrivateKey() {
  m_privateKey.setSecret(true);
}
