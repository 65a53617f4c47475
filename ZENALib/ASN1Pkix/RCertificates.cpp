#include "ZENALib/ASN1Pkix/RCertificates.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RCertificates::kFields[] = {
    R_FIELD(RCertificates, signCert, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RCertificates, kmCert, ASN1_TAG_SEQUENCE, R_MANDATORY),
};
const RSchema RCertificates::kSchema =
    R_SCHEMA(RCertificates, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
