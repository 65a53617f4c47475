// DSAPrivateKey ::= SEQUENCE {     (the traditional DSA key file: RFC 3279 2.3.2
//   version INTEGER,  -- 0           Dss-Parms, with the public value y and the
//   p INTEGER, q INTEGER, g INTEGER,  private value x appended)
//   y INTEGER,
//   x INTEGER }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RDSAPrivateKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(ASN1Integer, P, p)
  R_COMPONENT(ASN1Integer, Q, q)
  R_COMPONENT(ASN1Integer, G, g)
  R_COMPONENT(ASN1Integer, Y, y)
  R_COMPONENT(ASN1Integer, X, x)
};
