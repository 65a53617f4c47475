#include "ZENALib/ASN1Pkix/RBasicConstraints.h"

R_FIELDS(RBasicConstraints);
const RSchema RBasicConstraints::kSchema = R_SCHEMA(RBasicConstraints, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
