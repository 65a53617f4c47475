#include "ZENALib/ASN1Pkix/RAttributeTypeAndValue.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RAttributeTypeAndValue);
const RSchema RAttributeTypeAndValue::kSchema = R_SCHEMA(
    RAttributeTypeAndValue, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
