// KeyAgreeRecipientIdentifier ::= CHOICE {                     (RFC 5652 6.2.2)
//   issuerAndSerialNumber IssuerAndSerialNumber,
//   rKeyId                [0] IMPLICIT RecipientKeyIdentifier }
#pragma once

#include "ZENALib/ASN1Pkix/RChoice.h"
#include "ZENALib/ASN1Pkix/RIssuerAndSerialNumber.h"
#include "ZENALib/ASN1Pkix/RRecipientKeyIdentifier.h"

class RKeyAgreeRecipientIdentifier : public RChoice {
  R_DECLARE_SCHEMA()
  R_ALTERNATIVE(RIssuerAndSerialNumber, IssuerAndSerialNumber, issuerAndSerialNumber)
  R_ALTERNATIVE(RRecipientKeyIdentifier, RKeyId, rKeyId)
};
