// RC2-CBC-Parameter ::= SEQUENCE {                            (RFC 2898 B.2.3, RFC 3370 5.2)
//   rc2ParameterVersion INTEGER OPTIONAL,   -- 160, 120, 58 or >= 256: effective key bits
//   iv                  OCTET STRING (SIZE(8)) }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RRC2_CBC_Parameter : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Rc2ParameterVersion, rc2ParameterVersion)
  R_COMPONENT(ASN1OctetString, Iv, iv)
};
