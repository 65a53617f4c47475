// PCertListProcess: check a CRL against its issuer and look a certificate up.
//   crl_check CRL.der CERT.der ISSUER.der
#include <cstdio>

#include "ZENALib/QSProcess/PCertListProcess.h"
#include "ZENALib/QSProcess/PCertUtil.h"
#include "examples/toolkit/example_io.h"

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const ByteString crl = example::ReadFile(argv[1]);
  const ByteString cert = example::ReadFile(argv[2]);
  const ByteString issuer = example::ReadFile(argv[3]);

  // Decodes the CRL and checks its issuer name, the issuer's key usage and
  // the CRL's signature against the issuer certificate.
  PCertListProcess list;
  if (list.parseCertList(crl, &cert, &issuer) != 0) {
    std::fprintf(stderr, "%s\n", list.getErrorMessage().c_str());
    return 1;
  }
  PCertUtil subject;
  ByteString serial;
  if (subject.parseCertificate(cert) != 0 || subject.getSerialNumber(&serial) != 0) return 1;

  int index = -1;
  bool revoked = false;
  list.isRevoked(serial, &index, &revoked);
  std::printf("entries: %d\n", list.getRevokedCount());
  if (!revoked) {
    std::printf("not revoked\n");
    return 0;
  }
  int reason = PCRL_REASON_NONE;
  list.getRevokedReason(index, &reason);
  std::printf("revoked (entry %d, reason %d)\n", index, reason);
  return 3;
}
