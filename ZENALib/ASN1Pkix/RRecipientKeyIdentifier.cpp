#include "ZENALib/ASN1Pkix/RRecipientKeyIdentifier.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RRecipientKeyIdentifier::kFields[] = {
    R_FIELD(RRecipientKeyIdentifier, subjectKeyIdentifier, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RRecipientKeyIdentifier, date, ASN1_TAG_GENERALIZEDTIME, R_OPTIONAL),
    R_FIELD(RRecipientKeyIdentifier, other, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RRecipientKeyIdentifier::kSchema = R_SCHEMA(
    RRecipientKeyIdentifier, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
