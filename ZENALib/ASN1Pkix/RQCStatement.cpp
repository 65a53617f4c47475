#include "ZENALib/ASN1Pkix/RQCStatement.h"

const RField RQCStatement::kFields[] = {
    R_FIELD(RQCStatement, statementId, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_ANY(RQCStatement, statementInfo, R_OPTIONAL),
};
const RSchema RQCStatement::kSchema = R_SCHEMA(RQCStatement, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
