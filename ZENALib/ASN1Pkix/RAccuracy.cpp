#include "ZENALib/ASN1Pkix/RAccuracy.h"

const RField RAccuracy::kFields[] = {
    R_FIELD(RAccuracy, seconds, ASN1_TAG_INTEGER, R_OPTIONAL),
    R_FIELD_IMPLICIT(RAccuracy, millis, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RAccuracy, micros, 1, R_OPTIONAL),
};
const RSchema RAccuracy::kSchema = R_SCHEMA(RAccuracy, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
