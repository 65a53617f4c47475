// AdministrationDomainName ::= [APPLICATION 2] CHOICE {   (RFC 5280 appendix A.1)
//   numeric   NumericString (SIZE (0..ub-domain-name-length)),
//   printable PrintableString (SIZE (0..ub-domain-name-length)) }
// The [APPLICATION 2] tag belongs to the type (see RCountryName).
#pragma once

#include "ZENALib/ASN1/ASN1NumericString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

#define RAdministrationDomainName_COMPONENTS(X)                                                  \
  X(ASN1NumericString, Numeric, numeric, UNIVERSAL(ASN1_TAG_NUMERICSTRING), R_MANDATORY)         \
  X(ASN1PrintableString, Printable, printable, UNIVERSAL(ASN1_TAG_PRINTABLESTRING), R_MANDATORY)

class RAdministrationDomainName : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RAdministrationDomainName)

 public:
  RAdministrationDomainName() { setExplicitTag(2, ASN1_CLASS_APPLICATION); }
};
