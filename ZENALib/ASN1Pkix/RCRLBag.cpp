#include "ZENALib/ASN1Pkix/RCRLBag.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RCRLBag::kFields[] = {
    R_FIELD(RCRLBag, crlId, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_EXPLICIT(RCRLBag, crlValue, 0, R_MANDATORY),
};
const RSchema RCRLBag::kSchema =
    R_SCHEMA(RCRLBag, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
