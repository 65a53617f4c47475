#include "ZENALib/ASN1Pkix/RRecipientKeyIdentifier.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RRecipientKeyIdentifier);
const RSchema RRecipientKeyIdentifier::kSchema = R_SCHEMA(
    RRecipientKeyIdentifier, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
