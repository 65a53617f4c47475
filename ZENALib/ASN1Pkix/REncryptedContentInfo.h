// EncryptedContentInfo ::= SEQUENCE {                          (RFC 5652 6.1)
//   contentType                ContentType,
//   contentEncryptionAlgorithm ContentEncryptionAlgorithmIdentifier,
//   encryptedContent           [0] IMPLICIT EncryptedContent OPTIONAL }
// EncryptedContent ::= OCTET STRING
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/ROctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

#define REncryptedContentInfo_COMPONENTS(X)                                               \
  X(ASN1ObjectIdentifier, ContentType, contentType, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAlgorithmIdentifier, ContentEncryptionAlgorithm, contentEncryptionAlgorithm,         \
    UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                                            \
  X(ROctetString, EncryptedContent, encryptedContent, IMPLICIT(0), R_OPTIONAL)

class REncryptedContentInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(REncryptedContentInfo)
};
