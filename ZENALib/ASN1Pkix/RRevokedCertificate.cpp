#include "ZENALib/ASN1Pkix/RRevokedCertificate.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RRevokedCertificate::kFields[] = {
    R_FIELD(RRevokedCertificate, userCertificate, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD_TAGS(RRevokedCertificate, revocationDate, ASN1_TAG_UTCTIME, R_TAGS_TIME, R_MANDATORY),
    R_FIELD(RRevokedCertificate, crlEntryExtensions, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RRevokedCertificate::kSchema =
    R_SCHEMA(RRevokedCertificate, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);
