#include "ZENALib/ASN1Pkix/RRecipientEncryptedKey.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RRecipientEncryptedKey::kFields[] = {
    R_FIELD_ANY(RRecipientEncryptedKey, rid, R_MANDATORY),
    R_FIELD(RRecipientEncryptedKey, encryptedKey, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema RRecipientEncryptedKey::kSchema = R_SCHEMA(
    RRecipientEncryptedKey, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
