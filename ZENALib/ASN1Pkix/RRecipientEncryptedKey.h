// RecipientEncryptedKey ::= SEQUENCE {                         (RFC 5652 6.2.2)
//   rid          KeyAgreeRecipientIdentifier,
//   encryptedKey EncryptedKey }
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RKeyAgreeRecipientIdentifier.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RRecipientEncryptedKey : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RKeyAgreeRecipientIdentifier, Rid, rid)
  R_COMPONENT(ASN1OctetString, EncryptedKey, encryptedKey)
};
