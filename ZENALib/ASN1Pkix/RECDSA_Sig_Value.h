// ECDSA-Sig-Value ::= SEQUENCE { r INTEGER, s INTEGER }       (RFC 3279 2.2.3;
// Dss-Sig-Value has the same shape, RFC 3279 2.2.2)
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RStructure.h"

#define RECDSA_Sig_Value_COMPONENTS(X)                           \
  X(ASN1Integer, R, r, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY) \
  X(ASN1Integer, S, s, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)

class RECDSA_Sig_Value : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RECDSA_Sig_Value)
};
