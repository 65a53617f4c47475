#include "ZENALib/ASN1Pkix/RMacData.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RMacData);
const RSchema RMacData::kSchema =
    R_SCHEMA(RMacData, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);
