#include "ZENALib/ASN1Pkix/RKeyAgreeRecipientIdentifier.h"

R_FIELDS(RKeyAgreeRecipientIdentifier);
const RSchema RKeyAgreeRecipientIdentifier::kSchema =
    R_SCHEMA(RKeyAgreeRecipientIdentifier, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
