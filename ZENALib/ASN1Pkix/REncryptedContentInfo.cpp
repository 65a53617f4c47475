#include "ZENALib/ASN1Pkix/REncryptedContentInfo.h"

const RField REncryptedContentInfo::kFields[] = {
    R_FIELD(REncryptedContentInfo, contentType, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD(REncryptedContentInfo, contentEncryptionAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(REncryptedContentInfo, encryptedContent, 0, R_OPTIONAL),
};
const RSchema REncryptedContentInfo::kSchema = R_SCHEMA(
    REncryptedContentInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, "At least 2 component is required."), kFields);
