#include "ZENALib/ASN1Pkix/RTSTInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RTSTInfo::kFields[] = {
    R_FIELD(RTSTInfo, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RTSTInfo, policy, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD(RTSTInfo, messageImprint, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RTSTInfo, serialNumber, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RTSTInfo, genTime, ASN1_TAG_GENERALIZEDTIME, R_MANDATORY),
    R_FIELD(RTSTInfo, accuracy, ASN1_TAG_SEQUENCE, R_OPTIONAL),
    R_FIELD(RTSTInfo, ordering, ASN1_TAG_BOOLEAN, R_OPTIONAL),
    R_FIELD(RTSTInfo, nonce, ASN1_TAG_INTEGER, R_OPTIONAL),
    R_FIELD_EXPLICIT(RTSTInfo, tsa, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RTSTInfo, extensions, 1, R_OPTIONAL),
};
const RSchema RTSTInfo::kSchema =
    R_SCHEMA(RTSTInfo, ASN1_TAG_SEQUENCE, R_AT_LEAST(5, r_msg::kAtLeast5), kFields);
