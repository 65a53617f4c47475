// AuthenticatedSafe ::= SEQUENCE OF ContentInfo               (RFC 7292 4.1)
//   -- data: a SafeContents in the OCTET STRING; encryptedData: an
//   -- encrypted SafeContents; envelopedData: one enveloped for a recipient
#pragma once

#include "ZENALib/ASN1Pkix/RContentInfo.h"
#include "ZENALib/ASN1Pkix/RListOf.h"

class RAuthenticatedSafe : public RListOf<RContentInfo> {
 public:
  RAuthenticatedSafe() : RListOf("RAuthenticatedSafe") {}
};
