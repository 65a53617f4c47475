// RecipientEncryptedKeys ::= SEQUENCE OF RecipientEncryptedKey   (RFC 5652 6.2.2)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RRecipientEncryptedKey.h"

class RRecipientEncryptedKeys : public RListOf<RRecipientEncryptedKey> {
 public:
  RRecipientEncryptedKeys() : RListOf("RRecipientEncryptedKeys") {}
};
