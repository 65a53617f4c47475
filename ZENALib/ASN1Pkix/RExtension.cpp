#include "ZENALib/ASN1Pkix/RExtension.h"

const RField RExtension::kFields[] = {
    R_FIELD(RExtension, extnID, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD(RExtension, critical, ASN1_TAG_BOOLEAN, R_OPTIONAL),
    R_FIELD(RExtension, extnValue, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema RExtension::kSchema =
    R_SCHEMA(RExtension, ASN1_TAG_SEQUENCE, R_BETWEEN(2, 3, "The number of components is not 2 or 3."), kFields);
