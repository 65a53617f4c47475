// PCertUtil2: the subject name of an already decoded certificate as text
// (UDNSettings::RDN2Str layout).
#pragma once

#include "ZENALib/ASN1Pkix/RCertificate.h"
#include "ZENALib/QSProcess/PErrorTrace.h"

class PCertUtil2 : public PErrorTrace {
 public:
  PCertUtil2() : PErrorTrace("PCertUtil2") {}
  // 0, or fails with "Wrong RDNSequence form." when the name cannot be written.
  int getSubjectDN(const RCertificate& cert, ByteString* out);
};
