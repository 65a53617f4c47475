#include "ZENALib/ASN1Pkix/RMessageImprint.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RMessageImprint::kFields[] = {
    R_FIELD(RMessageImprint, hashAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RMessageImprint, hashedMessage, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema RMessageImprint::kSchema =
    R_SCHEMA(RMessageImprint, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);
