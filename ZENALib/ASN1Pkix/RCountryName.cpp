#include "ZENALib/ASN1Pkix/RCountryName.h"

R_FIELDS(RCountryName);
const RSchema RCountryName::kSchema = R_SCHEMA(RCountryName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
