#include "ZENALib/ASN1Pkix/RESSCertID.h"

const RField RESSCertID::kFields[] = {
    R_FIELD(RESSCertID, certHash, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RESSCertID, issuerSerial, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RESSCertID::kSchema =
    R_SCHEMA(RESSCertID, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, "At least 1 component is required."), kFields);
