// RDNSequence ::= SEQUENCE OF RelativeDistinguishedName; a Name is its only
// alternative, so names are held as an RRDNSequence.   (RFC 5280 4.1.2.4)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RRelativeDistinguishedName.h"

class RRDNSequence : public RListOf<RRelativeDistinguishedName> {
 public:
  RRDNSequence() : RListOf("RRDNSequence") {}
};
