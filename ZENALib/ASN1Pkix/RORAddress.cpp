#include "ZENALib/ASN1Pkix/RORAddress.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RORAddress);
const RSchema RORAddress::kSchema =
    R_SCHEMA(RORAddress, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
