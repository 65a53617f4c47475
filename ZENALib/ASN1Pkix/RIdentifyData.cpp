#include "ZENALib/ASN1Pkix/RIdentifyData.h"

#include "ZENALib/ASN1Pkix/RMessages.h"

R_FIELDS(RIdentifyData);
const RSchema RIdentifyData::kSchema =
    R_SCHEMA(RIdentifyData, ASN1_TAG_SEQUENCE, R_AT_LEAST(1, r_msg::kAtLeast1), kFields);

int RIdentifyData::getVID(int i, RVID* pVid) const {
  const RAttributeTypeAndValue* entry = hasUserInfo() ? m_userInfo.getAt(i) : nullptr;
  if (!entry || !pVid) return R_ERR_FORMAT;
  return pVid->fromASN1Object(entry->getValue().getElement());
}
