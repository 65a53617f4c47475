#include "ZENALib/ASN1Pkix/RPrivateDomainName.h"

R_FIELDS(RPrivateDomainName);
const RSchema RPrivateDomainName::kSchema = R_SCHEMA(RPrivateDomainName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
