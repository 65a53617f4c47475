#include "ZENALib/ASN1Pkix/RDisplayText.h"

const RField RDisplayText::kFields[] = {
    R_FIELD(RDisplayText, ia5String, ASN1_TAG_IA5STRING, R_MANDATORY),
    R_FIELD(RDisplayText, visibleString, ASN1_TAG_VISIBLESTRING, R_MANDATORY),
    R_FIELD(RDisplayText, bmpString, ASN1_TAG_BMPSTRING, R_MANDATORY),
    R_FIELD(RDisplayText, utf8String, ASN1_TAG_UTF8STRING, R_MANDATORY),
};
const RSchema RDisplayText::kSchema = R_SCHEMA(RDisplayText, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
