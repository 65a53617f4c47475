#include "ZENALib/ASN1Pkix/RNameConstraints.h"

R_FIELDS(RNameConstraints);
const RSchema RNameConstraints::kSchema = R_SCHEMA(RNameConstraints, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
