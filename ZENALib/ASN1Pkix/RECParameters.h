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

#define RECParameters_COMPONENTS(X)                                             \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)    \
  X(RFieldID, FieldID, fieldID, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)      \
  X(RCurve, Curve, curve, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)            \
  X(ASN1OctetString, Base, base, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)  \
  X(ASN1Integer, Order, order, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)        \
  X(ASN1Integer, Cofactor, cofactor, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL)   \
  X(RAlgorithmIdentifier, Hash, hash, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RECParameters : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RECParameters)
};
