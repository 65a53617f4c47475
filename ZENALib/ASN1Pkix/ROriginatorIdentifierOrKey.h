// OriginatorIdentifierOrKey ::= CHOICE {                       (RFC 5652 6.2.2)
//   issuerAndSerialNumber IssuerAndSerialNumber,
//   subjectKeyIdentifier  [0] IMPLICIT SubjectKeyIdentifier,
//   originatorKey         [1] IMPLICIT OriginatorPublicKey }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RIssuerAndSerialNumber.h"
#include "ZENALib/ASN1Pkix/ROriginatorPublicKey.h"

#define ROriginatorIdentifierOrKey_COMPONENTS(X)                                                                     \
  X(RIssuerAndSerialNumber, IssuerAndSerialNumber, issuerAndSerialNumber, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, SubjectKeyIdentifier, subjectKeyIdentifier, IMPLICIT(0), R_MANDATORY)                           \
  X(ROriginatorPublicKey, OriginatorKey, originatorKey, IMPLICIT(1), R_MANDATORY)

class ROriginatorIdentifierOrKey : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(ROriginatorIdentifierOrKey)
};
