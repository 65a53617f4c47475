#include "ZENALib/ASN1Pkix/RDirectoryString.h"

R_FIELDS(RDirectoryString);
const RSchema RDirectoryString::kSchema = R_SCHEMA(RDirectoryString, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
