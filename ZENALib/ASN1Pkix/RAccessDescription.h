// AccessDescription ::= SEQUENCE {                     (RFC 5280 4.2.2.1)
//   accessMethod   OBJECT IDENTIFIER,
//   accessLocation GeneralName }
#pragma once

#include "ZENALib/ASN1/ASN1ObjectIdentifier.h"
#include "ZENALib/ASN1Pkix/RGeneralName.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RAccessDescription : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1ObjectIdentifier, AccessMethod, accessMethod)
  R_COMPONENT(RGeneralName, AccessLocation, accessLocation)
};
