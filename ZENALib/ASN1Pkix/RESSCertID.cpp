#include "ZENALib/ASN1Pkix/RESSCertID.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RESSCertID::kFields[] = {
    R_FIELD(RESSCertID, certHash, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RESSCertID, issuerSerial, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RESSCertID::kSchema =
    R_SCHEMA(RESSCertID, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);
