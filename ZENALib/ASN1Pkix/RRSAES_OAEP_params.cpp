#include "ZENALib/ASN1Pkix/RRSAES_OAEP_params.h"

const RField RRSAES_OAEP_params::kFields[] = {
    R_FIELD_EXPLICIT(RRSAES_OAEP_params, hashAlgorithm, 0, R_OPTIONAL),
    R_FIELD_EXPLICIT(RRSAES_OAEP_params, maskGenAlgorithm, 1, R_OPTIONAL),
    R_FIELD_EXPLICIT(RRSAES_OAEP_params, pSourceAlgorithm, 2, R_OPTIONAL),
};
const RSchema RRSAES_OAEP_params::kSchema =
    R_SCHEMA(RRSAES_OAEP_params, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
