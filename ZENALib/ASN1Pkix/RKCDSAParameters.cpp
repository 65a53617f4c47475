#include "ZENALib/ASN1Pkix/RKCDSAParameters.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RKCDSAParameters::kFields[] = {
    R_FIELD(RKCDSAParameters, p, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RKCDSAParameters, q, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RKCDSAParameters, g, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RKCDSAParameters, j, ASN1_TAG_INTEGER, R_OPTIONAL),
    R_FIELD(RKCDSAParameters, seed, ASN1_TAG_OCTETSTRING, R_OPTIONAL),
    R_FIELD(RKCDSAParameters, count, ASN1_TAG_INTEGER, R_OPTIONAL),
};
const RSchema RKCDSAParameters::kSchema =
    R_SCHEMA(RKCDSAParameters, ASN1_TAG_SEQUENCE, R_AT_LEAST(3, r_msg::kAtLeast3), kFields);
