#include "ZENALib/ASN1Pkix/ROriginatorIdentifierOrKey.h"

R_FIELDS(ROriginatorIdentifierOrKey);
const RSchema ROriginatorIdentifierOrKey::kSchema =
    R_SCHEMA(ROriginatorIdentifierOrKey, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
