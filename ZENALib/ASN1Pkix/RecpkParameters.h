// ECPKParameters ::= CHOICE {                                 (RFC 3279 2.3.5;
//   ecParameters ECParameters,                                 ECParameters of
//   namedCurve   OBJECT IDENTIFIER,                            RFC 5480 2.1.1 and
//   implicitlyCA NULL }                                        SEC 1 C.2 alike)
#pragma once

#include "ZENALib/ASN1/ASN1Null.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RECParameters.h"

#define RecpkParameters_COMPONENTS(X)                                                     \
  X(RECParameters, EcParameters, ecParameters, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1ObjectIdentifier, NamedCurve, namedCurve, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY)   \
  X(ASN1Null, ImplicitlyCA, implicitlyCA, UNIVERSAL(ASN1_TAG_NULLTAG), R_MANDATORY)

class RecpkParameters : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RecpkParameters)
};
