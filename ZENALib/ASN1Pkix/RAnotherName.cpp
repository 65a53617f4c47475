#include "ZENALib/ASN1Pkix/RAnotherName.h"

const RField RAnotherName::kFields[] = {
    R_FIELD(RAnotherName, type_id, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_EXPLICIT(RAnotherName, value, 0, R_MANDATORY),
};
const RSchema RAnotherName::kSchema = R_SCHEMA(RAnotherName, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
