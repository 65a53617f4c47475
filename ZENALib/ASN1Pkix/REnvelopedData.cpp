#include "ZENALib/ASN1Pkix/REnvelopedData.h"

const RField REnvelopedData::kFields[] = {
    R_FIELD(REnvelopedData, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD_IMPLICIT(REnvelopedData, originatorInfo, 0, R_OPTIONAL),
    R_FIELD(REnvelopedData, recipientInfos, ASN1_TAG_SET, R_MANDATORY),
    R_FIELD(REnvelopedData, encryptedContentInfo, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(REnvelopedData, unprotectedAttrs, 1, R_OPTIONAL),
};
const RSchema REnvelopedData::kSchema =
    R_SCHEMA(REnvelopedData, ASN1_TAG_SEQUENCE, R_AT_LEAST(3, "At least 3 components is required."), kFields);
