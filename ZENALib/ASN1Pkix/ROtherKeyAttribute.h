// OtherKeyAttribute ::= SEQUENCE {                             (RFC 5652 10.2.7)
//   keyAttrId OBJECT IDENTIFIER,
//   keyAttr   ANY DEFINED BY keyAttrId OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define ROtherKeyAttribute_COMPONENTS(X)                                              \
  X(ASN1ObjectIdentifier, KeyAttrId, keyAttrId, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, KeyAttr, keyAttr, ANY(), R_OPTIONAL)

class ROtherKeyAttribute : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(ROtherKeyAttribute)
};
