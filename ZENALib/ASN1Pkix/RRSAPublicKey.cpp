#include "ZENALib/ASN1Pkix/RRSAPublicKey.h"

const RField RRSAPublicKey::kFields[] = {
    R_FIELD(RRSAPublicKey, modulus, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPublicKey, publicExponent, ASN1_TAG_INTEGER, R_MANDATORY),
};
const RSchema RRSAPublicKey::kSchema =
    R_SCHEMA(RRSAPublicKey, ASN1_TAG_SEQUENCE, R_EXACTLY(2, "The number of components is not 2."), kFields);
