#include "ZENALib/ASN1Pkix/RExtensionAttribute.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RExtensionAttribute::kFields[] = {
    R_FIELD_IMPLICIT(RExtensionAttribute, extension_attribute_type, 0, R_MANDATORY),
    R_FIELD_EXPLICIT(RExtensionAttribute, extension_attribute_value, 1, R_MANDATORY),
};
const RSchema RExtensionAttribute::kSchema =
    R_SCHEMA(RExtensionAttribute, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
