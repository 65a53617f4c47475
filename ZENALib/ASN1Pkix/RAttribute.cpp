#include "ZENALib/ASN1Pkix/RAttribute.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RAttribute::kFields[] = {
    R_FIELD(RAttribute, type, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD(RAttribute, values, ASN1_TAG_SET, R_MANDATORY),
};
const RSchema RAttribute::kSchema =
    R_SCHEMA(RAttribute, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
