#include "ZENALib/ASN1Pkix/RDistributionPointName.h"

const RField RDistributionPointName::kFields[] = {
    R_FIELD_IMPLICIT(RDistributionPointName, fullName, 0, R_MANDATORY),
    R_FIELD_IMPLICIT(RDistributionPointName, nameRelativeToCRLIssuer, 1, R_MANDATORY),
};
const RSchema RDistributionPointName::kSchema =
    R_SCHEMA(RDistributionPointName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
