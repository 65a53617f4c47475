#include "ZENALib/ASN1Pkix/RAttribute.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RAttribute);
const RSchema RAttribute::kSchema =
    R_SCHEMA(RAttribute, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
