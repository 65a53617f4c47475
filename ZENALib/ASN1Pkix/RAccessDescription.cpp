#include "ZENALib/ASN1Pkix/RAccessDescription.h"

const RField RAccessDescription::kFields[] = {
    R_FIELD(RAccessDescription, accessMethod, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_ANY(RAccessDescription, accessLocation, R_MANDATORY),
};
const RSchema RAccessDescription::kSchema = R_SCHEMA(RAccessDescription, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
