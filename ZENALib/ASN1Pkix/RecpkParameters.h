// ECPKParameters ::= CHOICE {                                 (RFC 3279 2.3.5;
//   ecParameters ECParameters,                                 ECParameters of
//   namedCurve   OBJECT IDENTIFIER,                            RFC 5480 2.1.1 and
//   implicitlyCA NULL }                                        SEC 1 C.2 alike)
#pragma once

#include "ZENALib/ASN1/ASN1Null.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RECParameters.h"

class RecpkParameters : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(RECParameters, EcParameters, ecParameters)
  R_ALTERNATIVE(ASN1ObjectIdentifier, NamedCurve, namedCurve)
  R_ALTERNATIVE(ASN1Null, ImplicitlyCA, implicitlyCA)
};
