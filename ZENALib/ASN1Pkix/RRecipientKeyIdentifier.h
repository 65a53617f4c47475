// RecipientKeyIdentifier ::= SEQUENCE {                        (RFC 5652 6.2.2)
//   subjectKeyIdentifier SubjectKeyIdentifier,
//   date                 GeneralizedTime OPTIONAL,
//   other                OtherKeyAttribute OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/ROtherKeyAttribute.h"

#define RRecipientKeyIdentifier_COMPONENTS(X)                                                                  \
  X(ASN1OctetString, SubjectKeyIdentifier, subjectKeyIdentifier, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY) \
  X(ASN1GeneralizedTime, Date, date, UNIVERSAL(ASN1_TAG_GENERALIZEDTIME), R_OPTIONAL)                          \
  X(ROtherKeyAttribute, Other, other, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RRecipientKeyIdentifier : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RRecipientKeyIdentifier)
};
