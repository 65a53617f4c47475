// ContentInfo ::= SEQUENCE {                                   (RFC 5652 3)
//   contentType ContentType,
//   content     [0] EXPLICIT ANY DEFINED BY contentType OPTIONAL }
//
// The content is kept verbatim; decode it with the class its type names
// (RSignedData, REnvelopedData, REncryptedData ...).
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RContentInfo_COMPONENTS(X)                                                        \
  X(ASN1ObjectIdentifier, ContentType, contentType, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, Content, content, EXPLICIT(0), R_OPTIONAL)

class RContentInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RContentInfo)
};
