// SignerIdentifier ::= CHOICE {                                (RFC 5652 5.3)
//   issuerAndSerialNumber IssuerAndSerialNumber,
//   subjectKeyIdentifier  [0] IMPLICIT SubjectKeyIdentifier }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RIssuerAndSerialNumber.h"

#define RSignerIdentifier_COMPONENTS(X)                                                                              \
  X(RIssuerAndSerialNumber, IssuerAndSerialNumber, issuerAndSerialNumber, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, SubjectKeyIdentifier, subjectKeyIdentifier, IMPLICIT(0), R_MANDATORY)

class RSignerIdentifier : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RSignerIdentifier)
};
