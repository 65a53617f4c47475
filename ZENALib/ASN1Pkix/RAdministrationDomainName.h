// AdministrationDomainName ::= [APPLICATION 2] CHOICE {   (RFC 5280 appendix A.1)
//   numeric   NumericString (SIZE (0..ub-domain-name-length)),
//   printable PrintableString (SIZE (0..ub-domain-name-length)) }
// The [APPLICATION 2] tag belongs to the type (see RCountryName).
#pragma once

#include "ZENALib/ASN1/ASN1NumericString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

class RAdministrationDomainName : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(ASN1NumericString, Numeric, numeric)
  R_ALTERNATIVE(ASN1PrintableString, Printable, printable)

 public:
  RAdministrationDomainName() { setExplicitTag(2, ASN1_CLASS_APPLICATION); }
};
