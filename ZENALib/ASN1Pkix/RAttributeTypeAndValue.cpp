#include "ZENALib/ASN1Pkix/RAttributeTypeAndValue.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RAttributeTypeAndValue::kFields[] = {
    R_FIELD(RAttributeTypeAndValue, type, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_ANY(RAttributeTypeAndValue, value, R_MANDATORY),
};
const RSchema RAttributeTypeAndValue::kSchema = R_SCHEMA(
    RAttributeTypeAndValue, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
