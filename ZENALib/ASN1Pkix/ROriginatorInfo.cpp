#include "ZENALib/ASN1Pkix/ROriginatorInfo.h"

R_FIELDS(ROriginatorInfo);
const RSchema ROriginatorInfo::kSchema = R_SCHEMA(ROriginatorInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
