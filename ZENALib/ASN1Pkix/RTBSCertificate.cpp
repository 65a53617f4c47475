#include "ZENALib/ASN1Pkix/RTBSCertificate.h"

const RField RTBSCertificate::kFields[] = {
    R_FIELD_EXPLICIT(RTBSCertificate, version, 0, R_VERSION),
    R_FIELD(RTBSCertificate, serialNumber, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RTBSCertificate, signature, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RTBSCertificate, issuer, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RTBSCertificate, validity, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RTBSCertificate, subject, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RTBSCertificate, subjectPublicKeyInfo, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_IMPLICIT(RTBSCertificate, issuerUniqueID, 1, R_OPTIONAL),
    R_FIELD_IMPLICIT(RTBSCertificate, subjectUniqueID, 2, R_OPTIONAL),
    R_FIELD_EXPLICIT(RTBSCertificate, extensions, 3, R_OPTIONAL),
};
const RSchema RTBSCertificate::kSchema =
    R_SCHEMA(RTBSCertificate, ASN1_TAG_SEQUENCE, R_AT_LEAST(6, "At least 6 components are required."), kFields);
