// PCertUtil2: the subject name of an already decoded certificate as text
// (UDNSettings::RDN2Str layout).
#pragma once

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/QSProcess/PTrace.h"

class PCertUtil2 : public PTrace {
 public:
  PCertUtil2() : PTrace("PCertUtil2") {}
  // 0, or fails with "Wrong RDNSequence form." when the name cannot be written.
  int getSubjectDN(const RCertificate& cert, ByteString* out);
};
