#include "ZENALib/ASN1Pkix/RPFX.h"

R_FIELDS(RPFX);
const RSchema RPFX::kSchema =
    R_SCHEMA(RPFX, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, "At least 2 components are requried."), kFields);
