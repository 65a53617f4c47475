#include "ZENALib/ASN1Pkix/RRSAPrivateKey.h"

const RField RRSAPrivateKey::kFields[] = {
    R_FIELD(RRSAPrivateKey, version, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPrivateKey, modulus, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPrivateKey, publicExponent, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPrivateKey, privateExponent, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPrivateKey, prime1, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPrivateKey, prime2, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPrivateKey, exponent1, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPrivateKey, exponent2, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPrivateKey, coefficient, ASN1_TAG_INTEGER, R_MANDATORY),
    R_FIELD(RRSAPrivateKey, otherPrimeInfos, ASN1_TAG_SEQUENCE, R_OPTIONAL),
};
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
