#include "ZENALib/ASN1Pkix/RPolicyQualifierInfo.h"

R_FIELDS(RPolicyQualifierInfo);
const RSchema RPolicyQualifierInfo::kSchema =
    R_SCHEMA(RPolicyQualifierInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
