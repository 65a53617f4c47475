#include "ZENALib/ASN1Pkix/RECDSA_Sig_Value.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RECDSA_Sig_Value::kFields[] = {
    R_FIELD(RECDSA_Sig_Value, r, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RECDSA_Sig_Value, s, ASN1_TAG_INTEGER, R_MANDATORY),
};
const RSchema RECDSA_Sig_Value::kSchema =
    R_SCHEMA(RECDSA_Sig_Value, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
