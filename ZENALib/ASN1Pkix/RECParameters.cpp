#include "ZENALib/ASN1Pkix/RECParameters.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RECParameters::kFields[] = {
    R_FIELD(RECParameters, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RECParameters, fieldID, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RECParameters, curve, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RECParameters, base, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RECParameters, order, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RECParameters, cofactor, ASN1_TAG_INTEGER, R_OPTIONAL),
    R_FIELD(RECParameters, hash, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RECParameters::kSchema =
    R_SCHEMA(RECParameters, ASN1_TAG_SEQUENCE, R_AT_LEAST(5, r_msg::kAtLeast5), kFields);
