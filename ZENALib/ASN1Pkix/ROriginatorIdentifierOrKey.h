// OriginatorIdentifierOrKey ::= CHOICE {                       (RFC 5652 6.2.2)
//   issuerAndSerialNumber IssuerAndSerialNumber,
//   subjectKeyIdentifier  [0] IMPLICIT SubjectKeyIdentifier,
//   originatorKey         [1] IMPLICIT OriginatorPublicKey }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RIssuerAndSerialNumber.h"
#include "ZENALib/ASN1Pkix/ROriginatorPublicKey.h"

class ROriginatorIdentifierOrKey : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(RIssuerAndSerialNumber, IssuerAndSerialNumber, issuerAndSerialNumber)
  R_ALTERNATIVE(ASN1OctetString, SubjectKeyIdentifier, subjectKeyIdentifier)
  R_ALTERNATIVE(ROriginatorPublicKey, OriginatorKey, originatorKey)
};
