// Extension ::= SEQUENCE { extnID OBJECT IDENTIFIER, critical BOOLEAN DEFAULT FALSE,
//                          extnValue OCTET STRING }   (RFC 5280 4.1.2.9)
#pragma once

#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RExtension_COMPONENTS(X)                                                         \
  X(ASN1ObjectIdentifier, ExtnID, extnID, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY)          \
  X(ASN1Boolean, Critical, critical, UNIVERSAL(ASN1_TAG_BOOLEAN), R_OPTIONAL)            \
  X(ASN1OctetString, ExtnValue, extnValue, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)

class RExtension : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RExtension)
};
