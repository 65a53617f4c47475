#include "ZENALib/ASN1Pkix/REncryptedData.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(REncryptedData);
const RSchema REncryptedData::kSchema =
    R_SCHEMA(REncryptedData, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2Component), kFields);
