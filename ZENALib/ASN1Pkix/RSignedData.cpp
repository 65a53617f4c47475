#include "ZENALib/ASN1Pkix/RSignedData.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RSignedData);
const RSchema RSignedData::kSchema =
    R_SCHEMA(RSignedData, ASN1_TAG_SEQUENCE, R_AT_LEAST(4, r_msg::kAtLeast4), kFields);
