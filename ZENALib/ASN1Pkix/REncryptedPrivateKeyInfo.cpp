#include "ZENALib/ASN1Pkix/REncryptedPrivateKeyInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(REncryptedPrivateKeyInfo);
const RSchema REncryptedPrivateKeyInfo::kSchema =
    R_SCHEMA(REncryptedPrivateKeyInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
