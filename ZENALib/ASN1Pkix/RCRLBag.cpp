#include "ZENALib/ASN1Pkix/RCRLBag.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RCRLBag);
const RSchema RCRLBag::kSchema =
    R_SCHEMA(RCRLBag, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
