#include "ZENALib/ASN1Pkix/RECParameters.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RECParameters);
const RSchema RECParameters::kSchema =
    R_SCHEMA(RECParameters, ASN1_TAG_SEQUENCE, R_AT_LEAST(5, r_msg::kAtLeast5), kFields);
