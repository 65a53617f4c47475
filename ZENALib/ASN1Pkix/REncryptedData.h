// EncryptedData ::= SEQUENCE {                                 (RFC 5652 8)
//   version              CMSVersion,
//   encryptedContentInfo EncryptedContentInfo,
//   unprotectedAttrs     [1] IMPLICIT UnprotectedAttributes OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RAttributes.h"
#include "ZENALib/ASN1Pkix/REncryptedContentInfo.h"

class REncryptedData : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(REncryptedContentInfo, EncryptedContentInfo, encryptedContentInfo)
  R_COMPONENT(RAttributes, UnprotectedAttrs, unprotectedAttrs)
};
