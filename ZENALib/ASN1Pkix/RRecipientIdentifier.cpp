#include "ZENALib/ASN1Pkix/RRecipientIdentifier.h"

const RField RRecipientIdentifier::kFields[] = {
    R_FIELD(RRecipientIdentifier, issuerAndSerialNumber, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(RRecipientIdentifier, subjectKeyIdentifier, 0, R_MANDATORY),
};
const RSchema RRecipientIdentifier::kSchema = R_SCHEMA(RRecipientIdentifier, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
