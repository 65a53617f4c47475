// RelativeDistinguishedName ::= SET SIZE (1..MAX) OF AttributeTypeAndValue   (RFC 5280 4.1.2.4)
#pragma once

#include "ZENALib/ASN1Pkix/RAttributeTypeAndValue.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RRelativeDistinguishedName : public RSetOf<RAttributeTypeAndValue> {
 public:
  RRelativeDistinguishedName() : RSetOf("RRelativeDistinguishedName") {}
};
