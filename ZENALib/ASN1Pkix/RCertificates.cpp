#include "ZENALib/ASN1Pkix/RCertificates.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RCertificates);
const RSchema RCertificates::kSchema =
    R_SCHEMA(RCertificates, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
