#include "ZENALib/ASN1Pkix/RCurve.h"

R_FIELDS(RCurve);
const RSchema RCurve::kSchema =
    R_SCHEMA(RCurve, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, "At least 2 comonents are required."), kFields);
