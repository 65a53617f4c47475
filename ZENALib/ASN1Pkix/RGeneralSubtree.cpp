#include "ZENALib/ASN1Pkix/RGeneralSubtree.h"

R_FIELDS(RGeneralSubtree);
const RSchema RGeneralSubtree::kSchema = R_SCHEMA(RGeneralSubtree, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
