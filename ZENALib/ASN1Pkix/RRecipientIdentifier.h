// RecipientIdentifier ::= CHOICE {                             (RFC 5652 6.2.1)
//   issuerAndSerialNumber IssuerAndSerialNumber,
//   subjectKeyIdentifier  [0] IMPLICIT SubjectKeyIdentifier }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RIssuerAndSerialNumber.h"

class RRecipientIdentifier : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(RIssuerAndSerialNumber, IssuerAndSerialNumber, issuerAndSerialNumber)
  R_ALTERNATIVE(ASN1OctetString, SubjectKeyIdentifier, subjectKeyIdentifier)
};
