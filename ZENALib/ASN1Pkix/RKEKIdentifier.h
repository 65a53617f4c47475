// KEKIdentifier ::= SEQUENCE {                                 (RFC 5652 6.2.3)
//   keyIdentifier OCTET STRING,
//   date          GeneralizedTime OPTIONAL,
//   other         OtherKeyAttribute OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/ROtherKeyAttribute.h"

class RKEKIdentifier : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1OctetString, KeyIdentifier, keyIdentifier)
  R_COMPONENT(ASN1GeneralizedTime, Date, date)
  R_COMPONENT(ROtherKeyAttribute, Other, other)
};
