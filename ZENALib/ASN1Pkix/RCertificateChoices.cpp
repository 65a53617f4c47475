#include "ZENALib/ASN1Pkix/RCertificateChoices.h"

R_FIELDS(RCertificateChoices);
const RSchema RCertificateChoices::kSchema = R_SCHEMA(RCertificateChoices, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
