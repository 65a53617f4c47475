#include "ZENALib/ASN1Pkix/RRSASSA_PSS_params.h"

R_FIELDS(RRSASSA_PSS_params);
const RSchema RRSASSA_PSS_params::kSchema =
    R_SCHEMA(RRSASSA_PSS_params, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
