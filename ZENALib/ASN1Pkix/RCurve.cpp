#include "ZENALib/ASN1Pkix/RCurve.h"

const RField RCurve::kFields[] = {
    R_FIELD(RCurve, a, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RCurve, b, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RCurve, seed, ASN1_TAG_BITSTRING, R_OPTIONAL),
};
const RSchema RCurve::kSchema =
    R_SCHEMA(RCurve, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, "At least 2 comonents are required."), kFields);
