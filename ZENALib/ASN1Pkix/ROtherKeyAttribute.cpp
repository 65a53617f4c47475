#include "ZENALib/ASN1Pkix/ROtherKeyAttribute.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(ROtherKeyAttribute);
const RSchema ROtherKeyAttribute::kSchema =
    R_SCHEMA(ROtherKeyAttribute, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
