// KeyAgreeRecipientIdentifier ::= CHOICE {                     (RFC 5652 6.2.2)
//   issuerAndSerialNumber IssuerAndSerialNumber,
//   rKeyId                [0] IMPLICIT RecipientKeyIdentifier }
#pragma once

#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RIssuerAndSerialNumber.h"
#include "ZENALib/ASN1Pkix/RRecipientKeyIdentifier.h"

#define RKeyAgreeRecipientIdentifier_COMPONENTS(X)                                                                   \
  X(RIssuerAndSerialNumber, IssuerAndSerialNumber, issuerAndSerialNumber, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RRecipientKeyIdentifier, RKeyId, rKeyId, IMPLICIT(0), R_MANDATORY)

class RKeyAgreeRecipientIdentifier : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVES(RKeyAgreeRecipientIdentifier)
};
