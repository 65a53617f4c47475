#include "ZENALib/ASN1Pkix/RRecipientInfo.h"

R_FIELDS(RRecipientInfo);
const RSchema RRecipientInfo::kSchema = R_SCHEMA(RRecipientInfo, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
