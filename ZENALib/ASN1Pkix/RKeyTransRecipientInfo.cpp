#include "ZENALib/ASN1Pkix/RKeyTransRecipientInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RKeyTransRecipientInfo);
const RSchema RKeyTransRecipientInfo::kSchema = R_SCHEMA(
    RKeyTransRecipientInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(4, r_msg::kNot4), kFields);
