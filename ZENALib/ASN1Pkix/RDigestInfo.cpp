#include "ZENALib/ASN1Pkix/RDigestInfo.h"

const RField RDigestInfo::kFields[] = {
    R_FIELD(RDigestInfo, digestAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RDigestInfo, digest, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema RDigestInfo::kSchema =
    R_SCHEMA(RDigestInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(2, "The number of components is not 2."), kFields);
