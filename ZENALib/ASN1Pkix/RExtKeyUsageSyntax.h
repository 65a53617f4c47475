// ExtKeyUsageSyntax ::= SEQUENCE SIZE (1..MAX) OF KeyPurposeId   (RFC 5280 4.2.1.12)
// KeyPurposeId ::= OBJECT IDENTIFIER
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RUniversalItem.h"

class RExtKeyUsageSyntax : public RListOf<RUniversalItem<ASN1ObjectIdentifier>> {
 public:
  RExtKeyUsageSyntax() : RListOf("RExtKeyUsageSyntax") {}
};
