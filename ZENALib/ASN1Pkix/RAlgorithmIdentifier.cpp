#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RAlgorithmIdentifier::kFields[] = {
    R_FIELD(RAlgorithmIdentifier, algorithm, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_ANY(RAlgorithmIdentifier, parameters, R_OPTIONAL),
};
const RSchema RAlgorithmIdentifier::kSchema =
    R_SCHEMA(RAlgorithmIdentifier, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
