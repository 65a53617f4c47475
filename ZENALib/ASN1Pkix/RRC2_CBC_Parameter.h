// RC2-CBC-Parameter ::= SEQUENCE {                            (RFC 2898 B.2.3, RFC 3370 5.2)
//   rc2ParameterVersion INTEGER OPTIONAL,   -- 160, 120, 58 or >= 256: effective key bits
//   iv                  OCTET STRING (SIZE(8)) }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RRC2_CBC_Parameter_COMPONENTS(X)                                                            \
  X(ASN1Integer, Rc2ParameterVersion, rc2ParameterVersion, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL) \
  X(ASN1OctetString, Iv, iv, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY)

class RRC2_CBC_Parameter : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RRC2_CBC_Parameter)
};
