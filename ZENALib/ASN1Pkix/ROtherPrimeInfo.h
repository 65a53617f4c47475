// OtherPrimeInfo ::= SEQUENCE {                               (RFC 8017 A.1.2)
//   prime       INTEGER,  -- ri
//   exponent    INTEGER,  -- di
//   coefficient INTEGER } -- ti
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class ROtherPrimeInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Prime, prime)
  R_COMPONENT(ASN1Integer, Exponent, exponent)
  R_COMPONENT(ASN1Integer, Coefficient, coefficient)
 public:
  // The key material (or password-derivation input) is wiped when released.
  ROtherPrimeInfo();
};
