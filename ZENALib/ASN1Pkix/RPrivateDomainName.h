// PrivateDomainName ::= CHOICE {                       (RFC 5280 appendix A.1)
//   numeric   NumericString (SIZE (1..ub-domain-name-length)),
//   printable PrintableString (SIZE (1..ub-domain-name-length)) }
#pragma once

#include "ZENALib/ASN1/ASN1NumericString.h"
#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"

#define RPrivateDomainName_COMPONENTS(X)                                                         \
  X(ASN1NumericString, Numeric, numeric, UNIVERSAL(ASN1_TAG_NUMERICSTRING), R_MANDATORY)         \
  X(ASN1PrintableString, Printable, printable, UNIVERSAL(ASN1_TAG_PRINTABLESTRING), R_MANDATORY)

class RPrivateDomainName : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RPrivateDomainName)
};
