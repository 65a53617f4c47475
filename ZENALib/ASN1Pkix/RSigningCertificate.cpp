#include "ZENALib/ASN1Pkix/RSigningCertificate.h"

R_FIELDS(RSigningCertificate);
const RSchema RSigningCertificate::kSchema = R_SCHEMA(
    RSigningCertificate, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, "At least 1 components are required."), kFields);
