#include "ZENALib/ASN1Pkix/RRC2_CBC_Parameter.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RRC2_CBC_Parameter::kFields[] = {
    R_FIELD(RRC2_CBC_Parameter, rc2ParameterVersion, ASN1_TAG_INTEGER, R_OPTIONAL),
    R_FIELD(RRC2_CBC_Parameter, iv, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema RRC2_CBC_Parameter::kSchema =
    R_SCHEMA(RRC2_CBC_Parameter, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
