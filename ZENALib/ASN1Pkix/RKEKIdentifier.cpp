#include "ZENALib/ASN1Pkix/RKEKIdentifier.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RKEKIdentifier::kFields[] = {
    R_FIELD(RKEKIdentifier, keyIdentifier, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RKEKIdentifier, date, ASN1_TAG_GENERALIZEDTIME, R_OPTIONAL),
    R_FIELD(RKEKIdentifier, other, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RKEKIdentifier::kSchema =
    R_SCHEMA(RKEKIdentifier, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
