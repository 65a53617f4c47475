#include "ZENALib/ASN1Pkix/RTime.h"

const RField RTime::kFields[] = {
    R_FIELD(RTime, utcTime, ASN1_TAG_UTCTIME, R_MANDATORY),
    R_FIELD(RTime, generalTime, ASN1_TAG_GENERALIZEDTIME, R_MANDATORY),
};
const RSchema RTime::kSchema = R_SCHEMA(RTime, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
