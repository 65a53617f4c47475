#include "ZENALib/ASN1Pkix/RPrivateDomainName.h"

const RField RPrivateDomainName::kFields[] = {
    R_FIELD(RPrivateDomainName, numeric, ASN1_TAG_NUMERICSTRING, R_MANDATORY),
    R_FIELD(RPrivateDomainName, printable, ASN1_TAG_PRINTABLESTRING, R_MANDATORY),
};
const RSchema RPrivateDomainName::kSchema = R_SCHEMA(RPrivateDomainName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
