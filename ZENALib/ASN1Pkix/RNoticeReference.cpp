#include "ZENALib/ASN1Pkix/RNoticeReference.h"

R_FIELDS(RNoticeReference);
const RSchema RNoticeReference::kSchema = R_SCHEMA(RNoticeReference, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
