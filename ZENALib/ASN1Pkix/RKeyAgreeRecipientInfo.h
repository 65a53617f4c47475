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

#define RKeyAgreeRecipientInfo_COMPONENTS(X)                                                                         \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                                         \
  X(ROriginatorIdentifierOrKey, Originator, originator, EXPLICIT(0), R_MANDATORY)                                    \
  X(ROctetString, Ukm, ukm, EXPLICIT(1), R_OPTIONAL)                                                                 \
  X(RAlgorithmIdentifier, KeyEncryptionAlgorithm, keyEncryptionAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RRecipientEncryptedKeys, RecipientEncryptedKeys, recipientEncryptedKeys,                                         \
    UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)

class RKeyAgreeRecipientInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RKeyAgreeRecipientInfo)
};
