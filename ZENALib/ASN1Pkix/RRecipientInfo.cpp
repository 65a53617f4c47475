#include "ZENALib/ASN1Pkix/RRecipientInfo.h"

const RField RRecipientInfo::kFields[] = {
    R_FIELD(RRecipientInfo, ktri, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(RRecipientInfo, kari, 1, R_MANDATORY),
    R_FIELD_IMPLICIT(RRecipientInfo, kekri, 2, R_MANDATORY),
    R_FIELD_IMPLICIT(RRecipientInfo, pwri, 3, R_MANDATORY),
    R_FIELD_IMPLICIT(RRecipientInfo, ori, 4, R_MANDATORY),
};
const RSchema RRecipientInfo::kSchema = R_SCHEMA(RRecipientInfo, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
