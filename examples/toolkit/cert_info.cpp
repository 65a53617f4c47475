// PCertUtil: read a DER certificate and print its main fields.
//   cert_info CERT.der
#include <cstdio>

#include "ZENALib/QSProcess/PCertUtil.h"
#include "examples/toolkit/example_io.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  PCertUtil cert;
  if (cert.parseCertificate(example::ReadFile(argv[1])) != 0) {
    std::fprintf(stderr, "%s\n", cert.getErrorMessage().c_str());
    return 1;
  }
  int version = 0;
  ByteString serial, subject, issuer;
  cert.getVersion(&version);
  cert.getSerialNumber(&serial);
  cert.getSubjectDN(&subject);
  cert.getIssuerDN(&issuer);
  std::printf("version: %d\n", version + 1);
  example::PrintHex("serial", serial);
  std::printf("subject: %s\nissuer: %s\n", subject.c_str(), issuer.c_str());

  int usage = 0;
  if (cert.get_KeyUsage_value(&usage) == 0)
    std::printf("keyUsage: %s%s\n", usage & PCERT_KU_DIGITAL_SIGNATURE ? "digitalSignature " : "",
                usage & PCERT_KU_KEY_CERT_SIGN ? "keyCertSign" : "");
  bool ca = false;
  if (cert.getBasicConstraints_cA(&ca) == 0) std::printf("cA: %s\n", ca ? "true" : "false");
  std::printf("extensions: %d\n", cert.getExtensionCount());
  return 0;
}
