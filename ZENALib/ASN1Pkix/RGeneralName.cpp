#include "ZENALib/ASN1Pkix/RGeneralName.h"

const RField RGeneralName::kFields[] = {
    R_FIELD_IMPLICIT(RGeneralName, otherName, 0, R_MANDATORY),
    R_FIELD_IMPLICIT(RGeneralName, rfc822Name, 1, R_MANDATORY),
    R_FIELD_IMPLICIT(RGeneralName, dNSName, 2, R_MANDATORY),
    R_FIELD_IMPLICIT(RGeneralName, x400Address, 3, R_MANDATORY),
    R_FIELD_EXPLICIT(RGeneralName, directoryName, 4, R_MANDATORY),
    R_FIELD_IMPLICIT(RGeneralName, ediPartyName, 5, R_MANDATORY),
    R_FIELD_IMPLICIT(RGeneralName, uniformResourceIdentifier, 6, R_MANDATORY),
    R_FIELD_IMPLICIT(RGeneralName, iPAddress, 7, R_MANDATORY),
    R_FIELD_IMPLICIT(RGeneralName, registeredID, 8, R_MANDATORY),
};
const RSchema RGeneralName::kSchema = R_SCHEMA(RGeneralName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
