#include "ZENALib/ASN1Pkix/RTBSCertList.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RTBSCertList);
const RSchema RTBSCertList::kSchema =
    R_SCHEMA(RTBSCertList, ASN1_TAG_SEQUENCE, R_AT_LEAST(3, r_msg::kAtLeast3), kFields);
