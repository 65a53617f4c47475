// SubjectPublicKeyInfo ::= SEQUENCE { algorithm AlgorithmIdentifier,
//                                     subjectPublicKey BIT STRING }   (RFC 5280 4.1.2.7)
#pragma once

#include "ZENALib/ASN1/ASN1BitString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

class RSubjectPublicKeyInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAlgorithmIdentifier, Algorithm, algorithm)
  R_COMPONENT(ASN1BitString, SubjectPublicKey, subjectPublicKey)
};
