// KEKRecipientInfo ::= SEQUENCE {                              (RFC 5652 6.2.3)
//   version                CMSVersion,  -- always set to 4
//   kekid                  KEKIdentifier,
//   keyEncryptionAlgorithm KeyEncryptionAlgorithmIdentifier,
//   encryptedKey           EncryptedKey }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"
#include "ZENALib/ASN1Pkix/RKEKIdentifier.h"

#define RKEKRecipientInfo_COMPONENTS(X)                                                                              \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                                         \
  X(RKEKIdentifier, Kekid, kekid, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                                         \
  X(RAlgorithmIdentifier, KeyEncryptionAlgorithm, keyEncryptionAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, EncryptedKey, encryptedKey, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)

class RKEKRecipientInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RKEKRecipientInfo)
};
