#include "ZENALib/ASN1Pkix/RPolicyMapping.h"

R_FIELDS(RPolicyMapping);
const RSchema RPolicyMapping::kSchema = R_SCHEMA(RPolicyMapping, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
