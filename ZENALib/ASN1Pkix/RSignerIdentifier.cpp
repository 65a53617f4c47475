#include "ZENALib/ASN1Pkix/RSignerIdentifier.h"

const RField RSignerIdentifier::kFields[] = {
    R_FIELD(RSignerIdentifier, issuerAndSerialNumber, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(RSignerIdentifier, subjectKeyIdentifier, 0, R_MANDATORY),
};
const RSchema RSignerIdentifier::kSchema = R_SCHEMA(RSignerIdentifier, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
