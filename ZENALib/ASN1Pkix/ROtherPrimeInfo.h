// OtherPrimeInfo ::= SEQUENCE {                               (RFC 8017 A.1.2)
//   prime       INTEGER,  -- ri
//   exponent    INTEGER,  -- di
//   coefficient INTEGER } -- ti
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define ROtherPrimeInfo_COMPONENTS(X)                                                \
  X(ASN1Integer, Prime, prime, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)             \
  X(ASN1Integer, Exponent, exponent, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)       \
  X(ASN1Integer, Coefficient, coefficient, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)

class ROtherPrimeInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(ROtherPrimeInfo)
 public:
  // The key material (or password-derivation input) is wiped when released.
  ROtherPrimeInfo();
};
