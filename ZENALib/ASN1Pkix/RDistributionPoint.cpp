#include "ZENALib/ASN1Pkix/RDistributionPoint.h"

R_FIELDS(RDistributionPoint);
const RSchema RDistributionPoint::kSchema = R_SCHEMA(RDistributionPoint, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
