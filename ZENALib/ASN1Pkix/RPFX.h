// PFX ::= SEQUENCE {                                          (RFC 7292 4)
//   version  INTEGER {v3(3)}(v3,...),
//   authSafe ContentInfo,      -- data or signedData holding an AuthenticatedSafe
//   macData  MacData OPTIONAL }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/RMacData.h"

class RPFX : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(ASN1Integer, Version, version)
  R_COMPONENT(RContentInfo, AuthSafe, authSafe)
  R_COMPONENT(RMacData, MacData, macData)
};
