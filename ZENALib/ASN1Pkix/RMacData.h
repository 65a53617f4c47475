// MacData ::= SEQUENCE {                                      (RFC 7292 4)
//   mac        DigestInfo,
//   macSalt    OCTET STRING,
//   iterations INTEGER DEFAULT 1 }
#pragma once

#include "ZENALib/ASN1/ASN1Integer.h"
#include "ZENALib/ASN1/ASN1OctetString.h"
#include "ZENALib/ASN1Pkix/RDigestInfo.h"

#define RMacData_COMPONENTS(X)                                                       \
  X(RDigestInfo, Mac, mac, UNIVERSAL(ASN1_TAG_SEQUENCE), R_MANDATORY)                \
  X(ASN1OctetString, MacSalt, macSalt, UNIVERSAL(ASN1_TAG_OCTETSTRING), R_MANDATORY) \
  X(ASN1Integer, Iterations, iterations, UNIVERSAL(ASN1_TAG_INTEGER), R_OPTIONAL)

class RMacData : public RStructure {
  R_DECLARE_SCHEMA()
  R_COMPONENTS(RMacData)

 public:
  // The iteration count, 1 when the DEFAULT is left out.
  int getIterationCount() const { return hasIterations() ? m_iterations.getInteger() : 1; }
};
