#include "ZENALib/ASN1Pkix/RecpkParameters.h"

R_FIELDS(RecpkParameters);
const RSchema RecpkParameters::kSchema = R_SCHEMA(RecpkParameters, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
