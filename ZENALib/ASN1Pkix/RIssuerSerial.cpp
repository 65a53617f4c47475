#include "ZENALib/ASN1Pkix/RIssuerSerial.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RIssuerSerial::kFields[] = {
    R_FIELD(RIssuerSerial, issuer, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RIssuerSerial, serialNumber, ASN1_TAG_INTEGER, R_MANDATORY),
};
const RSchema RIssuerSerial::kSchema =
    R_SCHEMA(RIssuerSerial, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2Component), kFields);
