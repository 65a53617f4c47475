#include "ZENALib/ASN1Pkix/RPBEParameter.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RPBEParameter);
const RSchema RPBEParameter::kSchema =
    R_SCHEMA(RPBEParameter, ASN1_TAG_SEQUENCE, R_EXACTLY(2, r_msg::kNot2), kFields);

RPBEParameter::RPBEParameter() {
  m_salt.setSecret(true);
}
