#include "ZENALib/ASN1Pkix/RGeneralSubtree.h"

const RField RGeneralSubtree::kFields[] = {
    R_FIELD_ANY(RGeneralSubtree, base, R_MANDATORY),
    R_FIELD_IMPLICIT(RGeneralSubtree, minimum, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RGeneralSubtree, maximum, 1, R_OPTIONAL),
};
const RSchema RGeneralSubtree::kSchema = R_SCHEMA(RGeneralSubtree, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
