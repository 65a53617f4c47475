#include "ZENALib/ASN1Pkix/RTSTInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RTSTInfo);
const RSchema RTSTInfo::kSchema =
    R_SCHEMA(RTSTInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(5, r_msg::kAtLeast5), kFields);
