#include "ZENALib/QSProcess/PCertUtil2.h"

#include "ZENALib/QSProcess/PCertMessages.h"
#include "ZENALib/QSProcess/UDNSettings.h"

int PCertUtil2::getSubjectDN(const RCertificate& cert, ByteString* out) {
  if (int rc = UDNSettings::RDN2Str(cert.getTbsCertificate().getSubject(), out))
    return P_FAIL("getSubjectDN", "UDNSettings::RDN2Str", rc, kMsgWrongRDNSequence);
  return 0;
}
