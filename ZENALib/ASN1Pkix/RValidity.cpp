#include "ZENALib/ASN1Pkix/RValidity.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RValidity);
const RSchema RValidity::kSchema =
    R_SCHEMA(RValidity, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
