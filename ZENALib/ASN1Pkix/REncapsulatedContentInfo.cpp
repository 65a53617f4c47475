#include "ZENALib/ASN1Pkix/REncapsulatedContentInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField REncapsulatedContentInfo::kFields[] = {
    R_FIELD(REncapsulatedContentInfo, eContentType, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_EXPLICIT(REncapsulatedContentInfo, eContent, 0, R_OPTIONAL),
};
const RSchema REncapsulatedContentInfo::kSchema = R_SCHEMA(
    REncapsulatedContentInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
