// EncapsulatedContentInfo ::= SEQUENCE {                       (RFC 5652 5.2)
//   eContentType ContentType,
//   eContent     [0] EXPLICIT OCTET STRING OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/ROctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define REncapsulatedContentInfo_COMPONENTS(X)                                              \
  X(ASN1ObjectIdentifier, EContentType, eContentType, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(ROctetString, EContent, eContent, EXPLICIT(0), R_OPTIONAL)

class REncapsulatedContentInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(REncapsulatedContentInfo)
};
