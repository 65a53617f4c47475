// EncryptedPrivateKeyInfo ::= SEQUENCE {                      (RFC 5208 6, RFC 5958 3)
//   encryptionAlgorithm EncryptionAlgorithmIdentifier,
//   encryptedData       EncryptedData }                     -- OCTET STRING
#pragma once

#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define REncryptedPrivateKeyInfo_COMPONENTS(X)                                                                 \
  X(RAlgorithmIdentifier, EncryptionAlgorithm, encryptionAlgorithm, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1OctetString, EncryptedData, encryptedData, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)

class REncryptedPrivateKeyInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(REncryptedPrivateKeyInfo)
};
