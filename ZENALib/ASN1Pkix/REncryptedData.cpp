#include "ZENALib/ASN1Pkix/REncryptedData.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField REncryptedData::kFields[] = {
    R_FIELD(REncryptedData, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(REncryptedData, encryptedContentInfo, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(REncryptedData, unprotectedAttrs, 1, R_OPTIONAL),
};
const RSchema REncryptedData::kSchema =
    R_SCHEMA(REncryptedData, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2Component), kFields);
