// RecipientEncryptedKey ::= SEQUENCE {                         (RFC 5652 6.2.2)
//   rid          KeyAgreeRecipientIdentifier,
//   encryptedKey EncryptedKey }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RKeyAgreeRecipientIdentifier.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RRecipientEncryptedKey_COMPONENTS(X)                                                   \
  X(RKeyAgreeRecipientIdentifier, Rid, rid, ANY(), R_MANDATORY)                                \
  X(ASN1OctetString, EncryptedKey, encryptedKey, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)

class RRecipientEncryptedKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RRecipientEncryptedKey)
};
