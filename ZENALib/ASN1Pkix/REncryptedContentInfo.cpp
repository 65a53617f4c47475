#include "ZENALib/ASN1Pkix/REncryptedContentInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField REncryptedContentInfo::kFields[] = {
    R_FIELD(REncryptedContentInfo, contentType, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD(REncryptedContentInfo, contentEncryptionAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(REncryptedContentInfo, encryptedContent, 0, R_OPTIONAL),
};
const RSchema REncryptedContentInfo::kSchema = R_SCHEMA(
    REncryptedContentInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2Component), kFields);
