#include "ZENALib/ASN1Pkix/RMacData.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RMacData::kFields[] = {
    R_FIELD(RMacData, mac, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(RMacData, macSalt, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RMacData, iterations, ASN1_TAG_INTEGER, R_OPTIONAL),
};
const RSchema RMacData::kSchema =
    R_SCHEMA(RMacData, ASN1_TAG_SEQUENCE, R_AT_LEAST(2, r_msg::kAtLeast2), kFields);
