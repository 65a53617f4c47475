#include "ZENALib/ASN1Pkix/RSafeBag.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RSafeBag::kFields[] = {
    R_FIELD(RSafeBag, bagId, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD_EXPLICIT(RSafeBag, bagValue, 0, R_MANDATORY),
    R_FIELD(RSafeBag, bagAttributes, ASN1_TAG_SET, R_OPTIONAL),
};
const RSchema RSafeBag::kSchema =
    R_SCHEMA(RSafeBag, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);
