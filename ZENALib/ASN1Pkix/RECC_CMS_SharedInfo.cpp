#include "ZENALib/ASN1Pkix/RECC_CMS_SharedInfo.h"

R_FIELDS(RECC_CMS_SharedInfo);
const RSchema RECC_CMS_SharedInfo::kSchema =
    R_SCHEMA(RECC_CMS_SharedInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
