#include "ZENALib/ASN1Pkix/RPersonalName.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RPersonalName::kFields[] = {
    R_FIELD_IMPLICIT(RPersonalName, surname, 0, R_MANDATORY),
    R_FIELD_IMPLICIT(RPersonalName, given_name, 1, R_OPTIONAL),
    R_FIELD_IMPLICIT(RPersonalName, initials, 2, R_OPTIONAL),
    R_FIELD_IMPLICIT(RPersonalName, generation_qualifier, 3, R_OPTIONAL),
};
const RSchema RPersonalName::kSchema =
    R_SCHEMA(RPersonalName, ASN1_TAG_SET, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
