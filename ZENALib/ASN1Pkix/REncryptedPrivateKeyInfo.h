// EncryptedPrivateKeyInfo ::= SEQUENCE {                      (RFC 5208 6, RFC 5958 3)
//   encryptionAlgorithm EncryptionAlgorithmIdentifier,
//   encryptedData       EncryptedData }                     -- OCTET STRING
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

class REncryptedPrivateKeyInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RAlgorithmIdentifier, EncryptionAlgorithm, encryptionAlgorithm)
  R_COMPONENT(ASN1OctetString, EncryptedData, encryptedData)
};
