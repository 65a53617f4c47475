// The values of an Attribute: SET OF AttributeValue, each an open type kept
// verbatim (its syntax is named by the attribute type).   (RFC 5280 4.1.2.4)
#pragma once

#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RAttributeValues : public RSetOf<RAny> {
 public:
  RAttributeValues() : RSetOf("RAttributeValues") {}
};
