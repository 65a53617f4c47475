// AccessDescription ::= SEQUENCE {                     (RFC 5280 4.2.2.1)
//   accessMethod   OBJECT IDENTIFIER,
//   accessLocation GeneralName }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RGeneralName.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RAccessDescription_COMPONENTS(X)                                                    \
  X(ASN1ObjectIdentifier, AccessMethod, accessMethod, UNIVERSAL(ASN1_TAG_OID), R_MANDATORY) \
  X(RGeneralName, AccessLocation, accessLocation, ANY(), R_MANDATORY)

class RAccessDescription : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RAccessDescription)
};
