// KeyAgreeRecipientInfo ::= SEQUENCE {                         (RFC 5652 6.2.2)
//   version                CMSVersion,  -- always set to 3
//   originator             [0] EXPLICIT OriginatorIdentifierOrKey,
//   ukm                    [1] EXPLICIT UserKeyingMaterial OPTIONAL,
//   keyEncryptionAlgorithm KeyEncryptionAlgorithmIdentifier,
//   recipientEncryptedKeys RecipientEncryptedKeys }
// UserKeyingMaterial ::= OCTET STRING
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/ROctetString.h"
#include "ZENALib/ASN1Pkix/ROriginatorIdentifierOrKey.h"
#include "ZENALib/ASN1Pkix/RRecipientEncryptedKeys.h"

class RKeyAgreeRecipientInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(ROriginatorIdentifierOrKey, Originator, originator)
  R_COMPONENT(ROctetString, Ukm, ukm)
  R_COMPONENT(RAlgorithmIdentifier, KeyEncryptionAlgorithm, keyEncryptionAlgorithm)
  R_COMPONENT(RRecipientEncryptedKeys, RecipientEncryptedKeys, recipientEncryptedKeys)
};
