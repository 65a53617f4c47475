// ECDSA-Sig-Value ::= SEQUENCE { r INTEGER, s INTEGER }       (RFC 3279 2.2.3;
// Dss-Sig-Value has the same shape, RFC 3279 2.2.2)
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

class RECDSA_Sig_Value : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, R, r)
  R_COMPONENT(ASN1Integer, S, s)
};
