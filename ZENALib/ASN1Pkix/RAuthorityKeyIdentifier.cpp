#include "ZENALib/ASN1Pkix/RAuthorityKeyIdentifier.h"

const RField RAuthorityKeyIdentifier::kFields[] = {
    R_FIELD_IMPLICIT(RAuthorityKeyIdentifier, keyIdentifier, 0, R_OPTIONAL),
    R_FIELD_IMPLICIT(RAuthorityKeyIdentifier, authorityCertIssuer, 1, R_OPTIONAL),
    R_FIELD_IMPLICIT(RAuthorityKeyIdentifier, authorityCertSerialNumber, 2, R_OPTIONAL),
};
const RSchema RAuthorityKeyIdentifier::kSchema =
    R_SCHEMA(RAuthorityKeyIdentifier, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
