#include "ZENALib/ASN1Pkix/RDistributionPoint.h"

const RField RDistributionPoint::kFields[] = {
    R_FIELD_EXPLICIT(RDistributionPoint, distributionPoint, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RDistributionPoint, reasons, 1, R_OPTIONAL),
    R_FIELD_IMPLICIT(RDistributionPoint, cRLIssuer, 2, R_OPTIONAL),
};
const RSchema RDistributionPoint::kSchema = R_SCHEMA(RDistributionPoint, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
