// ECParameters ::= SEQUENCE {                                 (RFC 3279 2.3.5, SEC 1 C.2)
//   version  ECPVer,            -- ecpVer1(1)
//   fieldID  FieldID,
//   curve    Curve,
//   base     ECPoint,           -- OCTET STRING
//   order    INTEGER,
//   cofactor INTEGER OPTIONAL,
//   hash     HashAlgorithm OPTIONAL }   -- SEC 1 only
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RCurve.h"
#include "ZENALib/ASN1Pkix/RFieldID.h"

class RECParameters : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(RFieldID, FieldID, fieldID)
  R_COMPONENT(RCurve, Curve, curve)
  R_COMPONENT(ASN1OctetString, Base, base)
  R_COMPONENT(ASN1Integer, Order, order)
  R_COMPONENT(ASN1Integer, Cofactor, cofactor)
  R_COMPONENT(RAlgorithmIdentifier, Hash, hash)
};
