#include "ZENALib/ASN1Pkix/RVID.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RVID::kFields[] = {
    R_FIELD(RVID, hashAlg, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_EXPLICIT(RVID, virtualID, 0, R_MANDATORY),
};
const RSchema RVID::kSchema =
    R_SCHEMA(RVID, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
