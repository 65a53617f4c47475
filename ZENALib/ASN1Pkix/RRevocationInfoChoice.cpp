#include "ZENALib/ASN1Pkix/RRevocationInfoChoice.h"

R_FIELDS(RRevocationInfoChoice);
const RSchema RRevocationInfoChoice::kSchema = R_SCHEMA(RRevocationInfoChoice, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
