// Attributes ::= SET OF Attribute   (RFC 5652 5.3: signedAttrs, unsignedAttrs)
#pragma once

#include "ZENALib/ASN1Pkix/RAttribute.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RAttributes : public RSetOf<RAttribute> {
 public:
  RAttributes() : RSetOf("RAttributes") {}
};
