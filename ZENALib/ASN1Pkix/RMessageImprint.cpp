#include "ZENALib/ASN1Pkix/RMessageImprint.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RMessageImprint);
const RSchema RMessageImprint::kSchema =
    R_SCHEMA(RMessageImprint, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);
