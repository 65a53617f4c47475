#include "ZENALib/ASN1Pkix/RContentInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RContentInfo);
const RSchema RContentInfo::kSchema =
    R_SCHEMA(RContentInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
