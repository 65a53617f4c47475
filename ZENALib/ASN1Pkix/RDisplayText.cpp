#include "ZENALib/ASN1Pkix/RDisplayText.h"

R_FIELDS(RDisplayText);
const RSchema RDisplayText::kSchema = R_SCHEMA(RDisplayText, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
