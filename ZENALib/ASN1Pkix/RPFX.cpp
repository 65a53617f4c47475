#include "ZENALib/ASN1Pkix/RPFX.h"

const RField RPFX::kFields[] = {
    R_FIELD(RPFX, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RPFX, authSafe, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RPFX, macData, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RPFX::kSchema =
    R_SCHEMA(RPFX, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, "At least 2 components are requried."), kFields);
