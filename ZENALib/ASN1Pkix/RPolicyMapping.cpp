#include "ZENALib/ASN1Pkix/RPolicyMapping.h"

const RField RPolicyMapping::kFields[] = {
    R_FIELD(RPolicyMapping, issuerDomainPolicy, ASN1_TAG_OID, R_MANDATORY),
    R_FIELD(RPolicyMapping, subjectDomainPolicy, ASN1_TAG_OID, R_MANDATORY),
};
const RSchema RPolicyMapping::kSchema = R_SCHEMA(RPolicyMapping, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
