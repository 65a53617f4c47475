#include "ZENALib/ASN1Pkix/RIssuingDistributionPoint.h"

const RField RIssuingDistributionPoint::kFields[] = {
    R_FIELD_EXPLICIT(RIssuingDistributionPoint, distributionPoint, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RIssuingDistributionPoint, onlyContainsUserCerts, 1, R_OPTIONAL),
    R_FIELD_IMPLICIT(RIssuingDistributionPoint, onlyContainsCACerts, 2, R_OPTIONAL),
    R_FIELD_IMPLICIT(RIssuingDistributionPoint, onlySomeReasons, 3, R_OPTIONAL),
    R_FIELD_IMPLICIT(RIssuingDistributionPoint, indirectCRL, 4, R_OPTIONAL),
    R_FIELD_IMPLICIT(RIssuingDistributionPoint, onlyContainsAttributeCerts, 5, R_OPTIONAL),
};
const RSchema RIssuingDistributionPoint::kSchema =
    R_SCHEMA(RIssuingDistributionPoint, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
