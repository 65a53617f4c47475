// OtherKeyAttribute ::= SEQUENCE {                             (RFC 5652 10.2.7)
//   keyAttrId OBJECT IDENTIFIER,
//   keyAttr   ANY DEFINED BY keyAttrId OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class ROtherKeyAttribute : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, KeyAttrId, keyAttrId)
  R_COMPONENT(RAny, KeyAttr, keyAttr)
};
