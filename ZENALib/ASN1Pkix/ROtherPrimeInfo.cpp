#include "ZENALib/ASN1Pkix/ROtherPrimeInfo.h"

const RField ROtherPrimeInfo::kFields[] = {
    R_FIELD(ROtherPrimeInfo, prime, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(ROtherPrimeInfo, exponent, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(ROtherPrimeInfo, coefficient, ASN1_TAG_INTEGER, R_MANDATORY),
};
const RSchema ROtherPrimeInfo::kSchema =
    R_SCHEMA(ROtherPrimeInfo, ASN1_TAG_SEQUENCE, R_NO_COUNT_RULE, kFields);

ROtherPrimeInfo::ROtherPrimeInfo() {
  m_prime.setSecret(true);
  m_exponent.setSecret(true);
  m_coefficient.setSecret(true);
}
