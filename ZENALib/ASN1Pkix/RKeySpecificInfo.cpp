#include "ZENALib/ASN1Pkix/RKeySpecificInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RKeySpecificInfo);
const RSchema RKeySpecificInfo::kSchema =
    R_SCHEMA(RKeySpecificInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
