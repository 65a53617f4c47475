#include "ZENALib/ASN1Pkix/RDSAPublicKey.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

const RField RDSAPublicKey::kParmsFields[] = {RDSAPublicKey_COMPONENTS(R_FIELD_ROW)};
const RSchema RDSAPublicKey::kParmsSchema =
    R_SCHEMA(RDSAPublicKey, ASN1_TAG_SEQUENCE, R_EXACTLY(3, r_msg::kNot3), kParmsFields);

const RField RDSAPublicKey::kKeyFields[] = {
    R_FIELD(RDSAPublicKey, y, ASN1_TAG_INTEGER, R_MANDATORY),
    RDSAPublicKey_COMPONENTS(R_FIELD_ROW)};
const RSchema RDSAPublicKey::kKeySchema =
    R_SCHEMA(RDSAPublicKey, ASN1_TAG_SEQUENCE, R_EXACTLY(4, r_msg::kNot4), kKeyFields);

int RDSAPublicKey::fromASN1View(const unsigned char* pData, int nData) {
  // The count picks the form; the base then checks it against that form's
  // rule, so three or fewer report "not 3." and more report "not 4.".
  ASN1Sequence counter;
  if (counter.fromASN1View(pData, nData) == 0) m_bPublicValue = counter.getComponentCount() > 3;
  return RStructure::fromASN1View(pData, nData);
}
