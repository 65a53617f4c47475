#include "ZENALib/ASN1Pkix/RRevokedCertificate.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RRevokedCertificate);
const RSchema RRevokedCertificate::kSchema =
    R_SCHEMA(RRevokedCertificate, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);
