#include "ZENALib/ASN1Pkix/RContentInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RContentInfo::kFields[] = {
    R_FIELD(RContentInfo, contentType, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_EXPLICIT(RContentInfo, content, 0, R_OPTIONAL),
};
const RSchema RContentInfo::kSchema =
    R_SCHEMA(RContentInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
