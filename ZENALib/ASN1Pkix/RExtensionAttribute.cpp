#include "ZENALib/ASN1Pkix/RExtensionAttribute.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RExtensionAttribute);
const RSchema RExtensionAttribute::kSchema =
    R_SCHEMA(RExtensionAttribute, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
