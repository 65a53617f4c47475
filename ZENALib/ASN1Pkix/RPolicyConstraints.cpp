#include "ZENALib/ASN1Pkix/RPolicyConstraints.h"

const RField RPolicyConstraints::kFields[] = {
    R_FIELD_IMPLICIT(RPolicyConstraints, requireExplicitPolicy, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RPolicyConstraints, inhibitPolicyMapping, 1, R_OPTIONAL),
};
const RSchema RPolicyConstraints::kSchema = R_SCHEMA(RPolicyConstraints, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
