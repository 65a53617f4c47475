// PolicyQualifierInfo ::= SEQUENCE {                   (RFC 5280 4.2.1.4)
//   policyQualifierId PolicyQualifierId,
//   qualifier         ANY DEFINED BY policyQualifierId }
// The qualifier is kept verbatim: an IA5String for id-qt-cps, a UserNotice
// (RUserNotice) for id-qt-unotice.
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RAny.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RPolicyQualifierInfo_COMPONENTS(X)                                                            \
  X(ASN1ObjectIdentifier, PolicyQualifierId, policyQualifierId, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RAny, Qualifier, qualifier, ANY(), R_MANDATORY)

class RPolicyQualifierInfo : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPolicyQualifierInfo)
};
