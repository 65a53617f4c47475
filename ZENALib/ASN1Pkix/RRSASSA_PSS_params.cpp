#include "ZENALib/ASN1Pkix/RRSASSA_PSS_params.h"

const RField RRSASSA_PSS_params::kFields[] = {
    R_FIELD_EXPLICIT(RRSASSA_PSS_params, hashAlgorithm, 0, R_OPTIONAL),
    R_FIELD_EXPLICIT(RRSASSA_PSS_params, maskGenAlgorithm, 1, R_OPTIONAL),
    R_FIELD_EXPLICIT(RRSASSA_PSS_params, saltLength, 2, R_OPTIONAL),
    R_FIELD_EXPLICIT(RRSASSA_PSS_params, trailerField, 3, R_OPTIONAL),
};
const RSchema RRSASSA_PSS_params::kSchema =
    R_SCHEMA(RRSASSA_PSS_params, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
