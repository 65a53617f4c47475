#include "ZENALib/ASN1Pkix/RKEKIdentifier.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RKEKIdentifier);
const RSchema RKEKIdentifier::kSchema =
    R_SCHEMA(RKEKIdentifier, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
