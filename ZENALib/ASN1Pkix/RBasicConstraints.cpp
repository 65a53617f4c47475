#include "ZENALib/ASN1Pkix/RBasicConstraints.h"

const RField RBasicConstraints::kFields[] = {
    R_FIELD(RBasicConstraints, cA, ASN1_TAG_BOOLEAN, R_OPTIONAL),
    R_FIELD(RBasicConstraints, pathLenConstraint, ASN1_TAG_INTEGER, R_OPTIONAL),
};
const RSchema RBasicConstraints::kSchema = R_SCHEMA(RBasicConstraints, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
