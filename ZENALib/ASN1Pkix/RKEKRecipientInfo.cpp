#include "ZENALib/ASN1Pkix/RKEKRecipientInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RKEKRecipientInfo::kFields[] = {
    R_FIELD(RKEKRecipientInfo, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RKEKRecipientInfo, kekid, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RKEKRecipientInfo, keyEncryptionAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RKEKRecipientInfo, encryptedKey, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema RKEKRecipientInfo::kSchema =
    R_SCHEMA(RKEKRecipientInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(4, r_msg::kNot4), kFields);
