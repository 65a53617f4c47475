#include "ZENALib/ASN1Pkix/ROriginatorPublicKey.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField ROriginatorPublicKey::kFields[] = {
    R_FIELD(ROriginatorPublicKey, algorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(ROriginatorPublicKey, publicKey, ASN1_TAG_BITSTRING, R_MANDATORY),
};
const RSchema ROriginatorPublicKey::kSchema = R_SCHEMA(
    ROriginatorPublicKey, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
