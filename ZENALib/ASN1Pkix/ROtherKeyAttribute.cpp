#include "ZENALib/ASN1Pkix/ROtherKeyAttribute.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField ROtherKeyAttribute::kFields[] = {
    R_FIELD(ROtherKeyAttribute, keyAttrId, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_ANY(ROtherKeyAttribute, keyAttr, R_OPTIONAL),
};
const RSchema ROtherKeyAttribute::kSchema =
    R_SCHEMA(ROtherKeyAttribute, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
