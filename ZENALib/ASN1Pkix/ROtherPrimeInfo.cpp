#include "ZENALib/ASN1Pkix/ROtherPrimeInfo.h"

R_FIELDS(ROtherPrimeInfo);
const RSchema ROtherPrimeInfo::kSchema =
    R_SCHEMA(ROtherPrimeInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);

ROtherPrimeInfo::ROtherPrimeInfo() {
  m_prime.setSecret(true);
  m_exponent.setSecret(true);
  m_coefficient.setSecret(true);
}
