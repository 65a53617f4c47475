#include "ZENALib/ASN1Pkix/RKeyTransRecipientInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RKeyTransRecipientInfo::kFields[] = {
    R_FIELD(RKeyTransRecipientInfo, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD_ANY(RKeyTransRecipientInfo, rid, R_MANDATORY),
    R_FIELD(RKeyTransRecipientInfo, keyEncryptionAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RKeyTransRecipientInfo, encryptedKey, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema RKeyTransRecipientInfo::kSchema = R_SCHEMA(
    RKeyTransRecipientInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(4, r_msg::kNot4), kFields);
