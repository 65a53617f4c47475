#include "ZENALib/ASN1Pkix/RHashContent.h"

R_FIELDS(RHashContent);
const RSchema RHashContent::kSchema = R_SCHEMA(RHashContent, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
