// Accuracy ::= SEQUENCE {                                      (RFC 3161 2.4.2)
//   seconds INTEGER OPTIONAL,
//   millis  [0] INTEGER (1..999) OPTIONAL,
//   micros  [1] INTEGER (1..999) OPTIONAL }
// (the module has IMPLICIT TAGS)
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RAccuracy_COMPONENTS(X)                                             \
  X(ASN1Integer, Seconds, seconds, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL) \
  X(ASN1Integer, Millis, millis, IMPLICIT(0), R_OPTIONAL)                   \
  X(ASN1Integer, Micros, micros, IMPLICIT(1), R_OPTIONAL)

class RAccuracy : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RAccuracy)
};
