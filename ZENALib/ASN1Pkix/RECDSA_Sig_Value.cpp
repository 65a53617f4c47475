#include "ZENALib/ASN1Pkix/RECDSA_Sig_Value.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RECDSA_Sig_Value);
const RSchema RECDSA_Sig_Value::kSchema =
    R_SCHEMA(RECDSA_Sig_Value, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
