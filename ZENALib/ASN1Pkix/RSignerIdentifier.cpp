#include "ZENALib/ASN1Pkix/RSignerIdentifier.h"

R_FIELDS(RSignerIdentifier);
const RSchema RSignerIdentifier::kSchema = R_SCHEMA(RSignerIdentifier, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
