// Validity ::= SEQUENCE { notBefore Time, notAfter Time }   (RFC 5280 4.1.2.5)
#pragma once

#include "ZENALib/ASN1Pkix/RStructure.h"
#include "ZENALib/ASN1Pkix/RTime.h"

class RValidity : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RTime, NotBefore, notBefore)
  R_COMPONENT(RTime, NotAfter, notAfter)
};
