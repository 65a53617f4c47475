// EncryptedContentInfo ::= SEQUENCE {                          (RFC 5652 6.1)
//   contentType                ContentType,
//   contentEncryptionAlgorithm ContentEncryptionAlgorithmIdentifier,
//   encryptedContent           [0] IMPLICIT EncryptedContent OPTIONAL }
// EncryptedContent ::= OCTET STRING
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/ROctetString.h"
#include "ZENALib/ASN1Pkix/RAlgorithmIdentifier.h"

class REncryptedContentInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, ContentType, contentType)
  R_COMPONENT(RAlgorithmIdentifier, ContentEncryptionAlgorithm, contentEncryptionAlgorithm)
  R_COMPONENT(ROctetString, EncryptedContent, encryptedContent)
};
