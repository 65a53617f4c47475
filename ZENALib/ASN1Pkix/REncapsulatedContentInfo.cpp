#include "ZENALib/ASN1Pkix/REncapsulatedContentInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(REncapsulatedContentInfo);
const RSchema REncapsulatedContentInfo::kSchema = R_SCHEMA(
    REncapsulatedContentInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
