// PBEParameter ::= SEQUENCE {                                 (RFC 8018 A.3; the same shape
//   salt           OCTET STRING (SIZE(8)),                     as pkcs-12PbeParams, RFC 7292 C)
//   iterationCount INTEGER }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RPBEParameter_COMPONENTS(X)                                                        \
  X(ASN1OctetString, Salt, salt, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)             \
  X(ASN1Integer, IterationCount, iterationCount, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)

class RPBEParameter : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPBEParameter)
 public:
  // The key material (or password-derivation input) is wiped when released.
  RPBEParameter();
};
