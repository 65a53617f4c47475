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

#define RKeyTransRecipientInfo_COMPONENTS(X)                                                                         \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                                         \
  X(RRecipientIdentifier, Rid, rid, ANY(), R_MANDATORY)                                                              \
  X(RAlgorithmIdentifier, KeyEncryptionAlgorithm, keyEncryptionAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, EncryptedKey, encryptedKey, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)

class RKeyTransRecipientInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RKeyTransRecipientInfo)
};
