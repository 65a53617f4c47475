#include "ZENALib/ASN1Pkix/ROriginatorInfo.h"

const RField ROriginatorInfo::kFields[] = {
    R_FIELD_IMPLICIT(ROriginatorInfo, certs, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(ROriginatorInfo, crls, 1, R_OPTIONAL),
};
const RSchema ROriginatorInfo::kSchema = R_SCHEMA(ROriginatorInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
