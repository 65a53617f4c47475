#include "ZENALib/ASN1Pkix/RPBEParameter.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RPBEParameter::kFields[] = {
    R_FIELD(RPBEParameter, salt, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RPBEParameter, iterationCount, ASN1_TAG_INTEGER, R_MANDATORY),
};
const RSchema RPBEParameter::kSchema =
    R_SCHEMA(RPBEParameter, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);

RPBEParameter::RPBEParameter() {
  m_salt.setSecret(true);
}
