// TSTInfo ::= SEQUENCE {                                       (RFC 3161 2.4.2)
//   version        INTEGER { v1(1) },
//   policy         TSAPolicyId,
//   messageImprint MessageImprint,
//   serialNumber   INTEGER,
//   genTime        GeneralizedTime,
//   accuracy       Accuracy OPTIONAL,
//   ordering       BOOLEAN DEFAULT FALSE,
//   nonce          INTEGER OPTIONAL,
//   tsa            [0] GeneralName OPTIONAL,
//   extensions     [1] IMPLICIT Extensions OPTIONAL }
// GeneralName is a CHOICE, so its [0] tag is explicit.
#pragma once

#include "ZENALib/ASN1/ASN1Boolean.h"
#include "ZENALib/ASN1/ASN1GeneralizedTime.h"
#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAccuracy.h"
#include "ZENALib/ASN1Pkix/RExtensions.h"
#include "ZENALib/ASN1Pkix/RGeneralName.h"
#include "ZENALib/ASN1Pkix/RMessageImprint.h"

#define RTSTInfo_COMPONENTS(X)                                                                  \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)                    \
  X(ASN1ObjectIdentifier, Policy, policy, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY)                 \
  X(RMessageImprint, MessageImprint, messageImprint, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(ASN1Integer, SerialNumber, serialNumber, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)          \
  X(ASN1GeneralizedTime, GenTime, genTime, UNIVERSAL(ASN1_TAG_GENERALIZEDTIME), R_MANDATORY)    \
  X(RAccuracy, Accuracy, accuracy, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)                    \
  X(ASN1Boolean, Ordering, ordering, UNIVERSAL(ASN1_TAG_BOOLEAN), R_OPTIONAL)                   \
  X(ASN1Integer, Nonce, nonce, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL)                         \
  X(RGeneralName, Tsa, tsa, EXPLICIT(0), R_OPTIONAL)                                            \
  X(RExtensions, Extensions, extensions, IMPLICIT(1), R_OPTIONAL)

class RTSTInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RTSTInfo)
};
