#include "ZENALib/ASN1Pkix/REDIPartyName.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(REDIPartyName);
const RSchema REDIPartyName::kSchema =
    R_SCHEMA(REDIPartyName, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
