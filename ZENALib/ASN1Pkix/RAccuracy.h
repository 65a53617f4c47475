// Accuracy ::= SEQUENCE {                                      (RFC 3161 2.4.2)
//   seconds INTEGER OPTIONAL,
//   millis  [0] INTEGER (1..999) OPTIONAL,
//   micros  [1] INTEGER (1..999) OPTIONAL }
// (the module has IMPLICIT TAGS)
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RAccuracy : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Seconds, seconds)
  R_COMPONENT(ASN1Integer, Millis, millis)
  R_COMPONENT(ASN1Integer, Micros, micros)
};
