#include "ZENALib/ASN1Pkix/RSubjectPublicKeyInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RSubjectPublicKeyInfo::kFields[] = {
    R_FIELD(RSubjectPublicKeyInfo, algorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RSubjectPublicKeyInfo, subjectPublicKey, ASN1_TAG_BITSTRING, R_MANDATORY),
};
const RSchema RSubjectPublicKeyInfo::kSchema = R_SCHEMA(
    RSubjectPublicKeyInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
