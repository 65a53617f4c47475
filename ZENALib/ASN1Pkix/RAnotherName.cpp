#include "ZENALib/ASN1Pkix/RAnotherName.h"

R_FIELDS(RAnotherName);
const RSchema RAnotherName::kSchema = R_SCHEMA(RAnotherName, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
