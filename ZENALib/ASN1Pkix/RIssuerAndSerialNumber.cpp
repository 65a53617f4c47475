#include "ZENALib/ASN1Pkix/RIssuerAndSerialNumber.h"

const RField RIssuerAndSerialNumber::kFields[] = {
    R_FIELD(RIssuerAndSerialNumber, issuer, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RIssuerAndSerialNumber, serialNumber, ASN1_TAG_INTEGER, R_MANDATORY),
};
const RSchema RIssuerAndSerialNumber::kSchema =
    R_SCHEMA(RIssuerAndSerialNumber, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
