// AlgorithmIdentifier ::= SEQUENCE { algorithm OBJECT IDENTIFIER,
//                                    parameters ANY DEFINED BY algorithm OPTIONAL }   (RFC 5280 4.1.1.2)
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RAlgorithmIdentifier : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, Algorithm, algorithm)
  R_COMPONENT(RAny, Parameters, parameters)
};
