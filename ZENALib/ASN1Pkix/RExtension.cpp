#include "ZENALib/ASN1Pkix/RExtension.h"

R_FIELDS(RExtension);
const RSchema RExtension::kSchema =
    R_SCHEMA(RExtension, ASN1_TAG_SEQUENCE, R_BETWEEN(2, 3, "The number of components is not 2 or 3."), kFields);
