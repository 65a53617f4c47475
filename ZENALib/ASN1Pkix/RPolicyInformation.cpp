#include "ZENALib/ASN1Pkix/RPolicyInformation.h"

R_FIELDS(RPolicyInformation);
const RSchema RPolicyInformation::kSchema =
    R_SCHEMA(RPolicyInformation, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, "At least 1 component is requried."), kFields);
