#include "ZENALib/ASN1Pkix/RKeyAgreeRecipientInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RKeyAgreeRecipientInfo);
const RSchema RKeyAgreeRecipientInfo::kSchema = R_SCHEMA(
    RKeyAgreeRecipientInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(4, r_msg::kAtLeast4), kFields);
