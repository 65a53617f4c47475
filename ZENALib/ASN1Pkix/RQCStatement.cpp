#include "ZENALib/ASN1Pkix/RQCStatement.h"

R_FIELDS(RQCStatement);
const RSchema RQCStatement::kSchema = R_SCHEMA(RQCStatement, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
