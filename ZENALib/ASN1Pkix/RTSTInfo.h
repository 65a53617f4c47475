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

class RTSTInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(ASN1ObjectIdentifier, Policy, policy)
  R_COMPONENT(RMessageImprint, MessageImprint, messageImprint)
  R_COMPONENT(ASN1Integer, SerialNumber, serialNumber)
  R_COMPONENT(ASN1GeneralizedTime, GenTime, genTime)
  R_COMPONENT(RAccuracy, Accuracy, accuracy)
  R_COMPONENT(ASN1Boolean, Ordering, ordering)
  R_COMPONENT(ASN1Integer, Nonce, nonce)
  R_COMPONENT(RGeneralName, Tsa, tsa)
  R_COMPONENT(RExtensions, Extensions, extensions)
};
