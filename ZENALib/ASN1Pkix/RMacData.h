// MacData ::= SEQUENCE {                                      (RFC 7292 4)
//   mac        DigestInfo,
//   macSalt    OCTET STRING,
//   iterations INTEGER DEFAULT 1 }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RDigestInfo.h"

class RMacData : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENT(RDigestInfo, Mac, mac)
  R_COMPONENT(ASN1OctetString, MacSalt, macSalt)
  R_COMPONENT(ASN1Integer, Iterations, iterations)

 public:
  // The iteration count, 1 when the DEFAULT is left out.
  int getIterationCount() const { return hasIterations() ? m_iterations.getInteger() : 1; }
};
