// SignerInfos ::= SET OF SignerInfo                            (RFC 5652 5.1)
#pragma once

#include "ZENALib/ASN1Pkix/RListOf.h"
#include "ZENALib/ASN1Pkix/RSignerInfo.h"

class RSignerInfos : public RSetOf<RSignerInfo> {
 public:
  RSignerInfos() : RSetOf("RSignerInfos") {}
};
