// SubjectPublicKeyInfo ::= SEQUENCE { algorithm AlgorithmIdentifier,
//                                     subjectPublicKey BIT STRING }   (RFC 5280 4.1.2.7)
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define RSubjectPublicKeyInfo_COMPONENTS(X)                                                        \
  X(RAlgorithmIdentifier, Algorithm, algorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)         \
  X(ASN1BitString, SubjectPublicKey, subjectPublicKey, UNIVERSAL(ASN1_TAG_BITSTRING), R_MANDATORY)

class RSubjectPublicKeyInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RSubjectPublicKeyInfo)
};
