#include "ZENALib/ASN1Pkix/RIdentifyData.h"

const RField RIdentifyData::kFields[] = {
    R_FIELD(RIdentifyData, realName, ASN1_TAG_UTF8STRING, R_MANDATORY),
    R_FIELD(RIdentifyData, userInfo, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
const RSchema RIdentifyData::kSchema =
    R_SCHEMA(RIdentifyData, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, "At least 1 component is required."), kFields);

int RIdentifyData::getVID(int i, RVID* pVid) const {
  const RAttributeTypeAndValue* entry = hasUserInfo() ? m_userInfo.getAt(i) : nullptr;
  if (!entry || !pVid) return R_ERR_FORMAT;
  return pVid->fromASN1Object(entry->m_value.getElement());
}
