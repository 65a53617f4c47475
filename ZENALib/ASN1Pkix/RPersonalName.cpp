#include "ZENALib/ASN1Pkix/RPersonalName.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RPersonalName);
const RSchema RPersonalName::kSchema =
    R_SCHEMA(RPersonalName, ASN1_TAG_SET, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
