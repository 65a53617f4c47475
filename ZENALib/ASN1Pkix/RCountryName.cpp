#include "ZENALib/ASN1Pkix/RCountryName.h"

const RField RCountryName::kFields[] = {
    R_FIELD(RCountryName, x121_dcc_code, ASN1_TAG_NUMERICSTRING, R_MANDATORY),
    R_FIELD(RCountryName, iso_3166_alpha2_code, ASN1_TAG_PRINTABLESTRING, R_MANDATORY),
};
const RSchema RCountryName::kSchema = R_SCHEMA(RCountryName, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
