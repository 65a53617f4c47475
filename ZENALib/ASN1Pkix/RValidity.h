// Validity ::= SEQUENCE { notBefore Time, notAfter Time }   (RFC 5280 4.1.2.5)
#pragma once

#include "ZENALib/ASN1Pkix/RStructure.h"
#include "ZENALib/ASN1Pkix/RTime.h"

#define RValidity_COMPONENTS(X)                                                    \
  X(RTime, NotBefore, notBefore, TAGS(ASN1_TAG_UTCTIME, R_TAGS_TIME), R_MANDATORY) \
  X(RTime, NotAfter, notAfter, TAGS(ASN1_TAG_UTCTIME, R_TAGS_TIME), R_MANDATORY)

class RValidity : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RValidity)
};
