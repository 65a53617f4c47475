#include "ZENALib/ASN1Pkix/RPolicyInformation.h"

const RField RPolicyInformation::kFields[] = {
    R_FIELD(RPolicyInformation, policyIdentifier, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD(RPolicyInformation, policyQualifiers, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RPolicyInformation::kSchema =
    R_SCHEMA(RPolicyInformation, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, "At least 1 component is requried."), kFields);
