#include "ZENALib/ASN1Pkix/RDistributionPointName.h"

R_FIELDS(RDistributionPointName);
const RSchema RDistributionPointName::kSchema =
    R_SCHEMA(RDistributionPointName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
