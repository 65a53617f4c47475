// ExtKeyUsageSyntax ::= SEQUENCE SIZE (1..MAX) OF KeyPurposeId   (RFC 5280 4.2.1.12)
// KeyPurposeId ::= OBJECT IDENTIFIER
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RExtKeyUsageSyntax : public RListOf<ASN1ObjectIdentifier> {
 public:
  RExtKeyUsageSyntax() : RListOf("RExtKeyUsageSyntax") {}
};
