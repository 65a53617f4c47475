// EnvelopedData ::= SEQUENCE {                                 (RFC 5652 6.1)
//   version              CMSVersion,
//   originatorInfo       [0] IMPLICIT OriginatorInfo OPTIONAL,
//   recipientInfos       RecipientInfos,
//   encryptedContentInfo EncryptedContentInfo,
//   unprotectedAttrs     [1] IMPLICIT UnprotectedAttributes OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RAttributes.h"
#include "ZENALib/ASN1Pkix/REncryptedContentInfo.h"
#include "ZENALib/ASN1Pkix/ROriginatorInfo.h"
#include "ZENALib/ASN1Pkix/RRecipientInfos.h"

class REnvelopedData : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(ROriginatorInfo, OriginatorInfo, originatorInfo)
  R_COMPONENT(RRecipientInfos, RecipientInfos, recipientInfos)
  R_COMPONENT(REncryptedContentInfo, EncryptedContentInfo, encryptedContentInfo)
  R_COMPONENT(RAttributes, UnprotectedAttrs, unprotectedAttrs)
};
