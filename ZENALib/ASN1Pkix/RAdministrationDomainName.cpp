#include "ZENALib/ASN1Pkix/RAdministrationDomainName.h"

R_FIELDS(RAdministrationDomainName);
const RSchema RAdministrationDomainName::kSchema =
    R_SCHEMA(RAdministrationDomainName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
