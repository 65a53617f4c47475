#include "ZENALib/ASN1Pkix/RAdministrationDomainName.h"

const RField RAdministrationDomainName::kFields[] = {
    R_FIELD(RAdministrationDomainName, numeric, ASN1_TAG_NUMERICSTRING, R_MANDATORY),
    R_FIELD(RAdministrationDomainName, printable, ASN1_TAG_PRINTABLESTRING, R_MANDATORY),
};
const RSchema RAdministrationDomainName::kSchema =
    R_SCHEMA(RAdministrationDomainName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
