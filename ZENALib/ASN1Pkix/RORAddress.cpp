#include "ZENALib/ASN1Pkix/RORAddress.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RORAddress::kFields[] = {
    R_FIELD(RORAddress, built_in_standard_attributes, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RORAddress, built_in_domain_defined_attributes, ASN1_TAG_SEQUENCE, R_OPTIONAL),
    R_FIELD(RORAddress, extension_attributes, ASN1_TAG_SET, R_OPTIONAL),
};
const RSchema RORAddress::kSchema =
    R_SCHEMA(RORAddress, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
