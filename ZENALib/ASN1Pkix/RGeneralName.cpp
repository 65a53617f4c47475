#include "ZENALib/ASN1Pkix/RGeneralName.h"

R_FIELDS(RGeneralName);
const RSchema RGeneralName::kSchema = R_SCHEMA(RGeneralName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
