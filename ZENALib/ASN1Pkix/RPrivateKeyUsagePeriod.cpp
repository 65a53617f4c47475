#include "ZENALib/ASN1Pkix/RPrivateKeyUsagePeriod.h"

const RField RPrivateKeyUsagePeriod::kFields[] = {
    R_FIELD_IMPLICIT(RPrivateKeyUsagePeriod, notBefore, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RPrivateKeyUsagePeriod, notAfter, 1, R_OPTIONAL),
};
const RSchema RPrivateKeyUsagePeriod::kSchema =
    R_SCHEMA(RPrivateKeyUsagePeriod, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
