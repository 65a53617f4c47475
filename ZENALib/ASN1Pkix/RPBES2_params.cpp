#include "ZENALib/ASN1Pkix/RPBES2_params.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RPBES2_params::kFields[] = {
    R_FIELD(RPBES2_params, keyDerivationFunc, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RPBES2_params, encryptionScheme, ASN1_TAG_SEQUENCE, R_MANDATORY),
};
const RSchema RPBES2_params::kSchema =
    R_SCHEMA(RPBES2_params, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
