// PCaPubs ::= SEQUENCE OF Certificate: the CA certificate bundle of the Korean
// accredited certification authorities (the root and its CAs, in one file).
#pragma once

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RPCaPubs : public RListOf<RCertificate> {
 public:
  RPCaPubs() : RListOf("RPCaPubs") {}
};
