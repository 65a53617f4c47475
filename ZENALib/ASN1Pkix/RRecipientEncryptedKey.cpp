#include "ZENALib/ASN1Pkix/RRecipientEncryptedKey.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RRecipientEncryptedKey);
const RSchema RRecipientEncryptedKey::kSchema = R_SCHEMA(
    RRecipientEncryptedKey, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
