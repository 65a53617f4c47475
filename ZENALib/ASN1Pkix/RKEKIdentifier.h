// KEKIdentifier ::= SEQUENCE {                                 (RFC 5652 6.2.3)
//   keyIdentifier OCTET STRING,
//   date          GeneralizedTime OPTIONAL,
//   other         OtherKeyAttribute OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/ROtherKeyAttribute.h"

#define RKEKIdentifier_COMPONENTS(X)                                                             \
  X(ASN1OctetString, KeyIdentifier, keyIdentifier, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY) \
  X(ASN1GeneralizedTime, Date, date, UNIVERSAL(ASN1_TAG_GENERALIZEDTIME), R_OPTIONAL)            \
  X(ROtherKeyAttribute, Other, other, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RKEKIdentifier : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RKEKIdentifier)
};
