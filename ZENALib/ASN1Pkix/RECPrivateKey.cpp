#include "ZENALib/ASN1Pkix/RECPrivateKey.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RECPrivateKey::kFields[] = {
    R_FIELD(RECPrivateKey, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RECPrivateKey, privateKey, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD_EXPLICIT(RECPrivateKey, parameters, 0, R_OPTIONAL),
    R_FIELD_EXPLICIT(RECPrivateKey, publicKey, 1, R_OPTIONAL),
};
const RSchema RECPrivateKey::kSchema =
    R_SCHEMA(RECPrivateKey, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2Component), kFields);

RECPrivateKey::RECPrivateKey() {
  m_privateKey.setSecret(true);
}
