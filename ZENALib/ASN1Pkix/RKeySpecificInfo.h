// KeySpecificInfo ::= SEQUENCE {                              (RFC 2631 2.1.2, ANSI X9.42)
//   algorithm OBJECT IDENTIFIER,   -- the key-wrap algorithm
//   counter   OCTET STRING SIZE (4..4) }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RKeySpecificInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, Algorithm, algorithm)
  R_COMPONENT(ASN1OctetString, Counter, counter)
};
