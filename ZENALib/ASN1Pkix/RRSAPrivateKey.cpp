#include "ZENALib/ASN1Pkix/RRSAPrivateKey.h"

R_FIELDS(RRSAPrivateKey);
const RSchema RRSAPrivateKey::kSchema =
    R_SCHEMA(RRSAPrivateKey, ASN1_TAG_SEQUENCE, R_AT_LEAST(9, "At least 9 components are required."), kFields);

RRSAPrivateKey::RRSAPrivateKey() {
  m_privateExponent.setSecret(true);
  m_prime1.setSecret(true);
  m_prime2.setSecret(true);
  m_exponent1.setSecret(true);
  m_exponent2.setSecret(true);
  m_coefficient.setSecret(true);
}
