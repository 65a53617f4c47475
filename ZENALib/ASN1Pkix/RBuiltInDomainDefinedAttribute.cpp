#include "ZENALib/ASN1Pkix/RBuiltInDomainDefinedAttribute.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RBuiltInDomainDefinedAttribute);
const RSchema RBuiltInDomainDefinedAttribute::kSchema = R_SCHEMA(
    RBuiltInDomainDefinedAttribute, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
