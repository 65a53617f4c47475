#include "ZENALib/ASN1Pkix/RValidity.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RValidity::kFields[] = {
    R_FIELD_TAGS(RValidity, notBefore, ASN1_TAG_UTCTIME, R_TAGS_TIME, R_MANDATORY),
    R_FIELD_TAGS(RValidity, notAfter, ASN1_TAG_UTCTIME, R_TAGS_TIME, R_MANDATORY),
};
const RSchema RValidity::kSchema =
    R_SCHEMA(RValidity, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
