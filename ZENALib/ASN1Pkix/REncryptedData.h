// EncryptedData ::= SEQUENCE {                                 (RFC 5652 8)
//   version              CMSVersion,
//   encryptedContentInfo EncryptedContentInfo,
//   unprotectedAttrs     [1] IMPLICIT UnprotectedAttributes OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RAttributes.h"
#include "ZENALib/ASN1Pkix/REncryptedContentInfo.h"

#define REncryptedData_COMPONENTS(X)                                                                              \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                                      \
  X(REncryptedContentInfo, EncryptedContentInfo, encryptedContentInfo, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RAttributes, UnprotectedAttrs, unprotectedAttrs, IMPLICIT(1), R_OPTIONAL)

class REncryptedData : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(REncryptedData)
};
