#include "ZENALib/ASN1Pkix/RPBEParameter.h"

const RField RPBEParameter::kFields[] = {
    R_FIELD(RPBEParameter, salt, ASN1_TAG_OCTETSTRING, R_MANDATORY),
    R_FIELD(RPBEParameter, iterationCount, ASN1_TAG_INTEGER, R_MANDATORY),
};
const RSchema RPBEParameter::kSchema =
    R_SCHEMA(RPBEParameter, ASN1_TAG_SEQUENCE, R_EXACTLY(2, "The number of components is not 2."), kFields);

RPBEParameter::RPBEParameter() {
  m_salt.setSecret(true);
}
