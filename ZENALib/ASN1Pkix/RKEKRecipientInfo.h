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

class RKEKRecipientInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(RKEKIdentifier, Kekid, kekid)
  R_COMPONENT(RAlgorithmIdentifier, KeyEncryptionAlgorithm, keyEncryptionAlgorithm)
  R_COMPONENT(ASN1OctetString, EncryptedKey, encryptedKey)
};
