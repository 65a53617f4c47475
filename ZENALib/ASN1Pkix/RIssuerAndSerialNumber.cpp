#include "ZENALib/ASN1Pkix/RIssuerAndSerialNumber.h"

R_FIELDS(RIssuerAndSerialNumber);
const RSchema RIssuerAndSerialNumber::kSchema =
    R_SCHEMA(RIssuerAndSerialNumber, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
