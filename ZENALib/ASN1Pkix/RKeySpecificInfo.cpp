#include "ZENALib/ASN1Pkix/RKeySpecificInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RKeySpecificInfo::kFields[] = {
    R_FIELD(RKeySpecificInfo, algorithm, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD(RKeySpecificInfo, counter, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema RKeySpecificInfo::kSchema =
    R_SCHEMA(RKeySpecificInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
