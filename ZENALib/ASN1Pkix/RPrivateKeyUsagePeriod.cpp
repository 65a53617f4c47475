#include "ZENALib/ASN1Pkix/RPrivateKeyUsagePeriod.h"

R_FIELDS(RPrivateKeyUsagePeriod);
const RSchema RPrivateKeyUsagePeriod::kSchema =
    R_SCHEMA(RPrivateKeyUsagePeriod, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
