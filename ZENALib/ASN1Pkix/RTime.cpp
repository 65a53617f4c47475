#include "ZENALib/ASN1Pkix/RTime.h"

R_FIELDS(RTime);
const RSchema RTime::kSchema = R_SCHEMA(RTime, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
