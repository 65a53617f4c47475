#include "ZENALib/ASN1Pkix/RKEKRecipientInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RKEKRecipientInfo);
const RSchema RKEKRecipientInfo::kSchema =
    R_SCHEMA(RKEKRecipientInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(4, r_msg::kNot4), kFields);
