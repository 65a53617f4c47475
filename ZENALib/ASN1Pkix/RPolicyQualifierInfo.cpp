#include "ZENALib/ASN1Pkix/RPolicyQualifierInfo.h"

const RField RPolicyQualifierInfo::kFields[] = {
    R_FIELD(RPolicyQualifierInfo, policyQualifierId, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_ANY(RPolicyQualifierInfo, qualifier, R_MANDATORY),
};
const RSchema RPolicyQualifierInfo::kSchema =
    R_SCHEMA(RPolicyQualifierInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
