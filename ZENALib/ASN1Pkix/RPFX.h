// PFX ::= SEQUENCE {                                          (RFC 7292 4)
//   version  INTEGER {v3(3)}(v3,...),
//   authSafe ContentInfo,      -- data or signedData holding an AuthenticatedSafe
//   macData  MacData OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/RMacData.h"

#define RPFX_COMPONENTS(X)                                                       \
  X(ASN1Integer, Version, version, UNIVERSAL(ASN1_TAG_INTEGER), R_MANDATORY)     \
  X(RContentInfo, AuthSafe, authSafe, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY) \
  X(RMacData, MacData, macData, UNIVERSAL(ASN1_TAG_SEQUENCE), R_OPTIONAL)

class RPFX : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RPFX)
};
