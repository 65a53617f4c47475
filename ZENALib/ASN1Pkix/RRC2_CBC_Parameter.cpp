#include "ZENALib/ASN1Pkix/RRC2_CBC_Parameter.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RRC2_CBC_Parameter);
const RSchema RRC2_CBC_Parameter::kSchema =
    R_SCHEMA(RRC2_CBC_Parameter, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
