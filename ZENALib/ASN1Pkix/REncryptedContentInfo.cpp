#include "ZENALib/ASN1Pkix/REncryptedContentInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(REncryptedContentInfo);
const RSchema REncryptedContentInfo::kSchema = R_SCHEMA(
    REncryptedContentInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2Component), kFields);
