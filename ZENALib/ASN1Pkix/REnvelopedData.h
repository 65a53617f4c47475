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

#define REnvelopedData_COMPONENTS(X)                                                                              \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                                      \
  X(ROriginatorInfo, OriginatorInfo, originatorInfo, IMPLICIT(0), R_OPTIONAL)                                     \
  X(RRecipientInfos, RecipientInfos, recipientInfos, UNIVERSAL(ASN1_TAG_SET), R_MANDATORY)                        \
  X(REncryptedContentInfo, EncryptedContentInfo, encryptedContentInfo, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RAttributes, UnprotectedAttrs, unprotectedAttrs, IMPLICIT(1), R_OPTIONAL)

class REnvelopedData : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(REnvelopedData)
};
