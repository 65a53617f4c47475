#include "ZENALib/ASN1Pkix/RDigestInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RDigestInfo);
const RSchema RDigestInfo::kSchema =
    R_SCHEMA(RDigestInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
