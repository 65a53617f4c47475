#include "ZENALib/ASN1Pkix/RTBSCertificate.h"

R_FIELDS(RTBSCertificate);
const RSchema RTBSCertificate::kSchema =
    R_SCHEMA(RTBSCertificate, ASN1_TAG_SEQUENCE, R_AT_LEAST(6, "At least 6 components are required."), kFields);
