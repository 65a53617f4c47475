#include "ZENALib/ASN1Pkix/RAccessDescription.h"

R_FIELDS(RAccessDescription);
const RSchema RAccessDescription::kSchema = R_SCHEMA(RAccessDescription, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
