#include "ZENALib/ASN1Pkix/RKeyAgreeRecipientIdentifier.h"

const RField RKeyAgreeRecipientIdentifier::kFields[] = {
    R_FIELD(RKeyAgreeRecipientIdentifier, issuerAndSerialNumber, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(RKeyAgreeRecipientIdentifier, rKeyId, 0, R_MANDATORY),
};
const RSchema RKeyAgreeRecipientIdentifier::kSchema =
    R_SCHEMA(RKeyAgreeRecipientIdentifier, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
