// BasicConstraints ::= SEQUENCE {                      (RFC 5280 4.2.1.9)
//   cA                BOOLEAN DEFAULT FALSE,
//   pathLenConstraint INTEGER (0..MAX) OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RBasicConstraints_COMPONENTS(X)                                                         \
  X(ASN1Boolean, CA, cA, UNIVERSAL(ASN1_TAG_BOOLEAN), R_OPTIONAL)                               \
  X(ASN1Integer, PathLenConstraint, pathLenConstraint, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL)

class RBasicConstraints : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RBasicConstraints)

 public:
  // cA with its DEFAULT FALSE applied.
  bool isCA() const { return hasCA() && m_cA.getBoolean(); }
};
