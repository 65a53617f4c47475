#include "ZENALib/ASN1Pkix/RSubjectPublicKeyInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RSubjectPublicKeyInfo);
const RSchema RSubjectPublicKeyInfo::kSchema = R_SCHEMA(
    RSubjectPublicKeyInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
