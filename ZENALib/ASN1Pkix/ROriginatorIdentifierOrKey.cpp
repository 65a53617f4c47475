#include "ZENALib/ASN1Pkix/ROriginatorIdentifierOrKey.h"

const RField ROriginatorIdentifierOrKey::kFields[] = {
    R_FIELD(ROriginatorIdentifierOrKey, issuerAndSerialNumber, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(ROriginatorIdentifierOrKey, subjectKeyIdentifier, 0, R_MANDATORY),
    R_FIELD_IMPLICIT(ROriginatorIdentifierOrKey, originatorKey, 1, R_MANDATORY),
};
const RSchema ROriginatorIdentifierOrKey::kSchema =
    R_SCHEMA(ROriginatorIdentifierOrKey, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
