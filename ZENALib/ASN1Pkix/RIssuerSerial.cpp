#include "ZENALib/ASN1Pkix/RIssuerSerial.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RIssuerSerial);
const RSchema RIssuerSerial::kSchema =
    R_SCHEMA(RIssuerSerial, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2Component), kFields);
