#include "ZENALib/ASN1Pkix/RSafeBag.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RSafeBag);
const RSchema RSafeBag::kSchema =
    R_SCHEMA(RSafeBag, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);
