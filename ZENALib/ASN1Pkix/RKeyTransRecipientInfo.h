// KeyTransRecipientInfo ::= SEQUENCE {                         (RFC 5652 6.2.1)
//   version                CMSVersion,  -- always set to 0 or 2
//   rid                    RecipientIdentifier,
//   keyEncryptionAlgorithm KeyEncryptionAlgorithmIdentifier,
//   encryptedKey           EncryptedKey }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RRecipientIdentifier.h"

class RKeyTransRecipientInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(RRecipientIdentifier, Rid, rid)
  R_COMPONENT(RAlgorithmIdentifier, KeyEncryptionAlgorithm, keyEncryptionAlgorithm)
  R_COMPONENT(ASN1OctetString, EncryptedKey, encryptedKey)
};
