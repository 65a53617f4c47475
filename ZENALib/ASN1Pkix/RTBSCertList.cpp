#include "ZENALib/ASN1Pkix/RTBSCertList.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RTBSCertList::kFields[] = {
    R_FIELD(RTBSCertList, version, ASN1_TAG_INTEGER, R_OPTIONAL),
    R_FIELD(RTBSCertList, signature, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RTBSCertList, issuer, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD_TAGS(RTBSCertList, thisUpdate, ASN1_TAG_UTCTIME, R_TAGS_TIME, R_MANDATORY),
    R_FIELD_TAGS(RTBSCertList, nextUpdate, ASN1_TAG_UTCTIME, R_TAGS_TIME, R_OPTIONAL),
    R_FIELD(RTBSCertList, revokedCertificates, ASN1_TAG_SEQUENCE, R_OPTIONAL),
    R_FIELD_EXPLICIT(RTBSCertList, crlExtensions, 0, R_OPTIONAL),
};
const RSchema RTBSCertList::kSchema =
    R_SCHEMA(RTBSCertList, ASN1_TAG_SEQUENCE, R_AT_LEAST(3, r_msg::kAtLeast3), kFields);
