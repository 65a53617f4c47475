#include "ZENALib/ASN1Pkix/RKeyAgreeRecipientInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RKeyAgreeRecipientInfo::kFields[] = {
    R_FIELD(RKeyAgreeRecipientInfo, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD_EXPLICIT(RKeyAgreeRecipientInfo, originator, 0, R_MANDATORY),
    R_FIELD_EXPLICIT(RKeyAgreeRecipientInfo, ukm, 1, R_OPTIONAL),
    R_FIELD(RKeyAgreeRecipientInfo, keyEncryptionAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RKeyAgreeRecipientInfo, recipientEncryptedKeys, ASN1_TAG_SEQUENCE, R_MANDATORY),
};
const RSchema RKeyAgreeRecipientInfo::kSchema = R_SCHEMA(
    RKeyAgreeRecipientInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(4, r_msg::kAtLeast4), kFields);
