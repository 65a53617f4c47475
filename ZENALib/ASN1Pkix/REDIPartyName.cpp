#include "ZENALib/ASN1Pkix/REDIPartyName.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField REDIPartyName::kFields[] = {
    R_FIELD_EXPLICIT(REDIPartyName, nameAssigner, 0, R_OPTIONAL),
    R_FIELD_EXPLICIT(REDIPartyName, partyName, 1, R_MANDATORY),
};
const RSchema REDIPartyName::kSchema =
    R_SCHEMA(REDIPartyName, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
