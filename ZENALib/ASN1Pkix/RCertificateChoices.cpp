#include "ZENALib/ASN1Pkix/RCertificateChoices.h"

const RField RCertificateChoices::kFields[] = {
    R_FIELD(RCertificateChoices, certificate, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(RCertificateChoices, extendedCertificate, 0, R_MANDATORY),
    R_FIELD_IMPLICIT(RCertificateChoices, v1AttrCert, 1, R_MANDATORY),
    R_FIELD_IMPLICIT(RCertificateChoices, v2AttrCert, 2, R_MANDATORY),
    R_FIELD_IMPLICIT(RCertificateChoices, other, 3, R_MANDATORY),
};
const RSchema RCertificateChoices::kSchema = R_SCHEMA(RCertificateChoices, ASN1_TAG_NONE, R_NO_COUNT_RULE, kFields);
