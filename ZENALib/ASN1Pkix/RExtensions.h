// Extensions ::= SEQUENCE SIZE (1..MAX) OF Extension   (RFC 5280 4.1.2.9)
#pragma once

#include "ZENALib/ASN1Pkix/RExtension.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RExtensions : public RListOf<RExtension> {
 public:
  RExtensions() : RListOf("RExtensions") {}
};
