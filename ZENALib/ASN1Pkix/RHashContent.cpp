#include "ZENALib/ASN1Pkix/RHashContent.h"

const RField RHashContent::kFields[] = {
    R_FIELD(RHashContent, idn, ASN1_TAG_PRINTABLESTRING, R_MANDATORY),
    R_FIELD(RHashContent, randomNum, ASN1_TAG_BITSTRING, R_MANDATORY),
};
const RSchema RHashContent::kSchema = R_SCHEMA(RHashContent, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);
