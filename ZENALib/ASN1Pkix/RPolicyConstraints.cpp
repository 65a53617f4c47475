#include "ZENALib/ASN1Pkix/RPolicyConstraints.h"

R_FIELDS(RPolicyConstraints);
const RSchema RPolicyConstraints::kSchema = R_SCHEMA(RPolicyConstraints, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
