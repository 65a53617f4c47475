#include "ZENALib/ASN1Pkix/ROtherInfo.h"

const RField ROtherInfo::kFields[] = {
    R_FIELD(ROtherInfo, keyInfo, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_EXPLICIT(ROtherInfo, partyAInfo, 0, R_OPTIONAL),
    R_FIELD_EXPLICIT(ROtherInfo, suppPubInfo, 2, R_MANDATORY),
};
const RSchema ROtherInfo::kSchema =
    R_SCHEMA(ROtherInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
