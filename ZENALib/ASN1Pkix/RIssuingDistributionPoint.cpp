#include "ZENALib/ASN1Pkix/RIssuingDistributionPoint.h"

R_FIELDS(RIssuingDistributionPoint);
const RSchema RIssuingDistributionPoint::kSchema =
    R_SCHEMA(RIssuingDistributionPoint, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
