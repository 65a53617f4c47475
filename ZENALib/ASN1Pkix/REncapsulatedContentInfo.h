// EncapsulatedContentInfo ::= SEQUENCE {                       (RFC 5652 5.2)
//   eContentType ContentType,
//   eContent     [0] EXPLICIT OCTET STRING OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/ROctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class REncapsulatedContentInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, EContentType, eContentType)
  R_COMPONENT(ROctetString, EContent, eContent)
};
