#include "ZENALib/ASN1Pkix/ROriginatorPublicKey.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(ROriginatorPublicKey);
const RSchema ROriginatorPublicKey::kSchema = R_SCHEMA(
    ROriginatorPublicKey, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
