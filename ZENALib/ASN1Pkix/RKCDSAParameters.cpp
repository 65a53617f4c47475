#include "ZENALib/ASN1Pkix/RKCDSAParameters.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RKCDSAParameters);
const RSchema RKCDSAParameters::kSchema =
    R_SCHEMA(RKCDSAParameters, ASN1_TAG_SEQUENCE, R_AT_LEAST(3, r_msg::kAtLeast3), kFields);
