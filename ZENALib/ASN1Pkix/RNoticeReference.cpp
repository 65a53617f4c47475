#include "ZENALib/ASN1Pkix/RNoticeReference.h"

const RField RNoticeReference::kFields[] = {
    R_FIELD_TAGS(RNoticeReference, organization, ASN1_TAG_UTF8STRING, R_TAGS_DISPLAYTEXT, R_MANDATORY),
    R_FIELD(RNoticeReference, noticeNumbers, ASN1_TAG_SEQUENCE, R_MANDATORY),
};
const RSchema RNoticeReference::kSchema = R_SCHEMA(RNoticeReference, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
