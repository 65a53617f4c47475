// Extension ::= SEQUENCE { extnID OBJECT IDENTIFIER, critical BOOLEAN DEFAULT FALSE,
//                          extnValue OCTET STRING }   (RFC 5280 4.1.2.9)
#pragma once

#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RExtension : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, ExtnID, extnID)
  R_COMPONENT(ASN1Boolean, Critical, critical)
  R_COMPONENT(ASN1OctetString, ExtnValue, extnValue)
};
