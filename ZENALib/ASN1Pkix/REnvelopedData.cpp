#include "ZENALib/ASN1Pkix/REnvelopedData.h"

R_FIELDS(REnvelopedData);
const RSchema REnvelopedData::kSchema =
    R_SCHEMA(REnvelopedData, ASN1_TAG_SEQUENCE, R_AT_LEAST(3, "At least 3 components is required."), kFields);
