#include "ZENALib/ASN1Pkix/RUserNotice.h"

const RField RUserNotice::kFields[] = {
    R_FIELD(RUserNotice, noticeRef, ASN1_TAG_SEQUENCE, R_OPTIONAL),
    R_FIELD_TAGS(RUserNotice, explicitText, ASN1_TAG_UTF8STRING, R_TAGS_DISPLAYTEXT, R_OPTIONAL),
};
const RSchema RUserNotice::kSchema = R_SCHEMA(RUserNotice, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
