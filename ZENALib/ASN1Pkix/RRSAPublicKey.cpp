#include "ZENALib/ASN1Pkix/RRSAPublicKey.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RRSAPublicKey::kFields[] = {
    R_FIELD(RRSAPublicKey, modulus, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPublicKey, publicExponent, ASN1_TAG_INTEGER, R_MANDATORY),
};
const RSchema RRSAPublicKey::kSchema =
    R_SCHEMA(RRSAPublicKey, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
