#include "ZENALib/ASN1Pkix/RRSAPublicKey.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RRSAPublicKey);
const RSchema RRSAPublicKey::kSchema =
    R_SCHEMA(RRSAPublicKey, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
