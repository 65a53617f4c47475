#include "ZENALib/ASN1Pkix/RecpkParameters.h"

const RField RecpkParameters::kFields[] = {
    R_FIELD(RecpkParameters, ecParameters, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RecpkParameters, namedCurve, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD(RecpkParameters, implicitlyCA, ASN1_TAG_NULLTAG, R_MANDATORY),
};
const RSchema RecpkParameters::kSchema = R_SCHEMA(RecpkParameters, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
