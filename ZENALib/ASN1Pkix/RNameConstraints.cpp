#include "ZENALib/ASN1Pkix/RNameConstraints.h"

const RField RNameConstraints::kFields[] = {
    R_FIELD_IMPLICIT(RNameConstraints, permittedSubtrees, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RNameConstraints, excludedSubtrees, 1, R_OPTIONAL),
};
const RSchema RNameConstraints::kSchema = R_SCHEMA(RNameConstraints, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
