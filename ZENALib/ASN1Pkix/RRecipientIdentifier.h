// RecipientIdentifier ::= CHOICE {                             (RFC 5652 6.2.1)
//   issuerAndSerialNumber IssuerAndSerialNumber,
//   subjectKeyIdentifier  [0] IMPLICIT SubjectKeyIdentifier }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RIssuerAndSerialNumber.h"

#define RRecipientIdentifier_COMPONENTS(X)                                                                           \
  X(RIssuerAndSerialNumber, IssuerAndSerialNumber, issuerAndSerialNumber, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, SubjectKeyIdentifier, subjectKeyIdentifier, IMPLICIT(0), R_MANDATORY)

class RRecipientIdentifier : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RRecipientIdentifier)
};
