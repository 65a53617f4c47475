#include "ZENALib/ASN1Pkix/RDigestInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RDigestInfo::kFields[] = {
    R_FIELD(RDigestInfo, digestAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RDigestInfo, digest, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema RDigestInfo::kSchema =
    R_SCHEMA(RDigestInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
