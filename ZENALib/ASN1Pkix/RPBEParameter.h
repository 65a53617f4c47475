// PBEParameter ::= SEQUENCE {                                 (RFC 8018 A.3; the same shape
//   salt           OCTET STRING (SIZE(8)),                     as pkcs-12PbeParams, RFC 7292 C)
//   iterationCount INTEGER }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RPBEParameter : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1OctetString, Salt, salt)
  R_COMPONENT(ASN1Integer, IterationCount, iterationCount)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RPBEParameter();
};
