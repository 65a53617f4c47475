#include "ZENALib/ASN1Pkix/RESSCertID.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RESSCertID);
const RSchema RESSCertID::kSchema =
    R_SCHEMA(RESSCertID, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
