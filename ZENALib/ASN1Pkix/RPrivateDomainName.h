// PrivateDomainName ::= CHOICE {                       (RFC 5280 appendix A.1)
//   numeric   NumericString (SIZE (1..ub-domain-name-length)),
//   printable PrintableString (SIZE (1..ub-domain-name-length)) }
#pragma once

#include "ZENALib/ASN1/ASN1NumericString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

class RPrivateDomainName : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(ASN1NumericString, Numeric, numeric)
  R_ALTERNATIVE(ASN1PrintableString, Printable, printable)
};
