#include "ZENALib/ASN1Pkix/RPBES2_params.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RPBES2_params);
const RSchema RPBES2_params::kSchema =
    R_SCHEMA(RPBES2_params, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
