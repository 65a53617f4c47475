#include "ZENALib/ASN1Pkix/RECC_CMS_SharedInfo.h"

const RField RECC_CMS_SharedInfo::kFields[] = {
    R_FIELD(RECC_CMS_SharedInfo, keyInfo, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_EXPLICIT(RECC_CMS_SharedInfo, entityUInfo, 0, R_OPTIONAL),
    R_FIELD_EXPLICIT(RECC_CMS_SharedInfo, suppPubInfo, 2, R_MANDATORY),
};
const RSchema RECC_CMS_SharedInfo::kSchema =
    R_SCHEMA(RECC_CMS_SharedInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
