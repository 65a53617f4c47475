#include "ZENALib/ASN1Pkix/RSigningCertificate.h"

const RField RSigningCertificate::kFields[] = {
    R_FIELD(RSigningCertificate, certs, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RSigningCertificate, policies, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RSigningCertificate::kSchema = R_SCHEMA(
    RSigningCertificate, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, "At least 1 components are required."), kFields);
