// OrganizationalUnitNames ::= SEQUENCE SIZE (1..ub-organizational-units)
//                             OF OrganizationalUnitName   (RFC 5280 appendix A.1)
// OrganizationalUnitName ::= PrintableString (SIZE (1..ub-organizational-unit-name-length))
#pragma once

#include "ZENALib/ASN1/ASN1PrintableString.h"
#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RUniversalItem.h"

class ROrganizationalUnitNames : public RListOf<RUniversalItem<ASN1PrintableString>> {
 public:
  ROrganizationalUnitNames() : RListOf("ROrganizationalUnitNames") {}
};
