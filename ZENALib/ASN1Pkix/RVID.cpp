#include "ZENALib/ASN1Pkix/RVID.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RVID);
const RSchema RVID::kSchema =
    R_SCHEMA(RVID, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
