#include "ZENALib/ASN1Pkix/RBuiltInDomainDefinedAttribute.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RBuiltInDomainDefinedAttribute::kFields[] = {
    R_FIELD(RBuiltInDomainDefinedAttribute, type, ASN1_TAG_PRINTABLESTRING, R_MANDATORY),
    R_FIELD(RBuiltInDomainDefinedAttribute, value, ASN1_TAG_PRINTABLESTRING, R_MANDATORY),
};
const RSchema RBuiltInDomainDefinedAttribute::kSchema = R_SCHEMA(
    RBuiltInDomainDefinedAttribute, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
