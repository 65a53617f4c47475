#include "ZENALib/ASN1Pkix/ROtherInfo.h"

R_FIELDS(ROtherInfo);
const RSchema ROtherInfo::kSchema =
    R_SCHEMA(ROtherInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
