#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RAlgorithmIdentifier);
const RSchema RAlgorithmIdentifier::kSchema =
    R_SCHEMA(RAlgorithmIdentifier, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
