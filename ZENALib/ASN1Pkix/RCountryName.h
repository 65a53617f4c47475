// CountryName ::= [APPLICATION 1] CHOICE {             (RFC 5280 appendix A.1)
//   x121-dcc-code        NumericString (SIZE (3)),
//   iso-3166-alpha2-code PrintableString (SIZE (2)) }
// The [APPLICATION 1] tag belongs to the type, so the object carries it
// from construction and the choice engine unwraps and wraps it.
#pragma once

#include "ZENALib/ASN1/ASN1NumericString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

#define RCountryName_COMPONENTS(X)                                                                                  \
  X(ASN1NumericString, X121DccCode, x121_dcc_code, UNIVERSAL(ASN1_TAG_NUMERICSTRING), R_MANDATORY)                  \
  X(ASN1PrintableString, Iso3166Alpha2Code, iso_3166_alpha2_code, UNIVERSAL(ASN1_TAG_PRINTABLESTRING), R_MANDATORY)

class RCountryName : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RCountryName)

 public:
  RCountryName() { setExplicitTag(1, ASN1_CLASS_APPLICATION); }
};
