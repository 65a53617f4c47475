// AlgorithmIdentifier ::= SEQUENCE { algorithm OBJECT IDENTIFIER,
//                                    parameters ANY DEFINED BY algorithm OPTIONAL }   (RFC 5280 4.1.1.2)
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RAlgorithmIdentifier_COMPONENTS(X)                                            \
  X(ASN1ObjectIdentifier, Algorithm, algorithm, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, Parameters, parameters, ANY(), R_OPTIONAL)

class RAlgorithmIdentifier : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RAlgorithmIdentifier)
};
