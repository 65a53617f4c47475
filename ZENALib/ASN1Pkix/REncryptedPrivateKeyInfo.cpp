#include "ZENALib/ASN1Pkix/REncryptedPrivateKeyInfo.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField REncryptedPrivateKeyInfo::kFields[] = {
    R_FIELD(REncryptedPrivateKeyInfo, encryptionAlgorithm, ASN1_TAG_SEQUENCE, R_MANDATORY),
    R_FIELD(REncryptedPrivateKeyInfo, encryptedData, ASN1_TAG_OCTETSTRING, R_MANDATORY),
};
const RSchema REncryptedPrivateKeyInfo::kSchema =
    R_SCHEMA(REncryptedPrivateKeyInfo, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);
