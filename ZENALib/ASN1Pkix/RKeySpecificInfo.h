// KeySpecificInfo ::= SEQUENCE {                              (RFC 2631 2.1.2, ANSI X9.42)
//   algorithm OBJECT IDENTIFIER,   -- the key-wrap algorithm
//   counter   OCTET STRING SIZE (4..4) }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RKeySpecificInfo_COMPONENTS(X)                                                \
  X(ASN1ObjectIdentifier, Algorithm, algorithm, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(ASN1OctetString, Counter, counter, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)

class RKeySpecificInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RKeySpecificInfo)
};
