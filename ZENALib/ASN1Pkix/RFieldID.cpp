#include "ZENALib/ASN1Pkix/RFieldID.h"

const RField RFieldID::kFields[] = {
    R_FIELD(RFieldID, fieldType, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_ANY(RFieldID, parameters, R_MANDATORY),
};
const RSchema RFieldID::kSchema =
    R_SCHEMA(RFieldID, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
