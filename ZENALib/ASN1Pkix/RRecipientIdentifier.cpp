#include "ZENALib/ASN1Pkix/RRecipientIdentifier.h"

R_FIELDS(RRecipientIdentifier);
const RSchema RRecipientIdentifier::kSchema = R_SCHEMA(RRecipientIdentifier, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
