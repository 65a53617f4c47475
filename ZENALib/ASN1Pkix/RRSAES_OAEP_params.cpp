#include "ZENALib/ASN1Pkix/RRSAES_OAEP_params.h"

R_FIELDS(RRSAES_OAEP_params);
const RSchema RRSAES_OAEP_params::kSchema =
    R_SCHEMA(RRSAES_OAEP_params, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
