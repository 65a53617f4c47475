// AuthorityInfoAccessSyntax ::= SEQUENCE SIZE (1..MAX) OF AccessDescription   (RFC 5280 4.2.2.1)
#pragma once

#include "ZENALib/ASN1Pkix/RAccessDescription.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RAuthorityInfoAccessSyntax : public RListOf<RAccessDescription> {
 public:
  RAuthorityInfoAccessSyntax() : RListOf("RAuthorityInfoAccessSyntax") {}
};
