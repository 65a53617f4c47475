#include "ZENALib/ASN1Pkix/RAuthorityKeyIdentifier.h"

R_FIELDS(RAuthorityKeyIdentifier);
const RSchema RAuthorityKeyIdentifier::kSchema =
    R_SCHEMA(RAuthorityKeyIdentifier, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
