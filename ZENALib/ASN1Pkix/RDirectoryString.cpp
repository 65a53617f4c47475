#include "ZENALib/ASN1Pkix/RDirectoryString.h"

const RField RDirectoryString::kFields[] = {
    R_FIELD(RDirectoryString, teletexString, ASN1_TAG_T61STRING, R_MANDATORY),
    R_FIELD(RDirectoryString, printableString, ASN1_TAG_PRINTABLESTRING, R_MANDATORY),
    R_FIELD(RDirectoryString, universalString, R_TAG_UNIVERSALSTRING, R_MANDATORY),
    R_FIELD(RDirectoryString, utf8String, ASN1_TAG_UTF8STRING, R_MANDATORY),
    R_FIELD(RDirectoryString, bmpString, ASN1_TAG_BMPSTRING, R_MANDATORY),
};
const RSchema RDirectoryString::kSchema = R_SCHEMA(RDirectoryString, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
