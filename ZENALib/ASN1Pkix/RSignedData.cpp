#include "ZENALib/ASN1Pkix/RSignedData.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RSignedData::kFields[] = {
    R_FIELD(RSignedData, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RSignedData, digestAlgorithms, ASN1_TAG_SET, R_MANDATORY),
    R_FIELD(RSignedData, encapContentInfo, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(RSignedData, certificates, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RSignedData, crls, 1, R_OPTIONAL),
    R_FIELD(RSignedData, signerInfos, ASN1_TAG_SET, R_MANDATORY),
};
const RSchema RSignedData::kSchema =
    R_SCHEMA(RSignedData, ASN1_TAG_SEQUENCE, R_AT_LEAST(4, r_msg::kAtLeast4), kFields);
