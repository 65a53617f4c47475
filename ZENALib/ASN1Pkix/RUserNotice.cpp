#include "ZENALib/ASN1Pkix/RUserNotice.h"

R_FIELDS(RUserNotice);
const RSchema RUserNotice::kSchema = R_SCHEMA(RUserNotice, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
