#include "ZENALib/ASN1Pkix/RAccuracy.h"

R_FIELDS(RAccuracy);
const RSchema RAccuracy::kSchema = R_SCHEMA(RAccuracy, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
