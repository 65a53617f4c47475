#include "ZENALib/ASN1Pkix/RFieldID.h"

R_FIELDS(RFieldID);
const RSchema RFieldID::kSchema =
    R_SCHEMA(RFieldID, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
